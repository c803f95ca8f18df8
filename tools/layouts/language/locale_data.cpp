// Looks up languages in the locale data.
#include "locale_data.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <set>

#include <unicode/dtfmtsym.h>
#include <unicode/locdspnm.h>
#include <unicode/locid.h>
#include <unicode/numsys.h>
#include <unicode/uchar.h>
#include <unicode/ulocdata.h>
#include <unicode/uniset.h>
#include <unicode/ures.h>
#include <unicode/uscript.h>
#include <unicode/usetiter.h>

#include "text.h"

namespace layouts
{
namespace
{

std::string utf8(const icu::UnicodeString& text)
{
    std::string result;
    return nfc(text.toUTF8String(result));
}

std::vector<std::string> lettersOf(const icu::UnicodeSet& set)
{
    std::vector<std::string> letters;
    icu::UnicodeSetIterator each(set);
    while (each.next())
        letters.push_back(utf8(each.getString()));
    return letters;
}

using LocaleData = std::unique_ptr<ULocaleData, void (*)(ULocaleData*)>;

LocaleData openLocale(const std::string& icuName)
{
    UErrorCode status = U_ZERO_ERROR;
    return LocaleData(ulocdata_open(icuName.c_str(), &status), ulocdata_close);
}

std::vector<std::string> exemplars(const std::string& icuName, ULocaleDataExemplarSetType type)
{
    if (!isKnownLocale(icuName))
        return {};
    const LocaleData data = openLocale(icuName);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<USet, void (*)(USet*)> set(
        ulocdata_getExemplarSet(data.get(), nullptr, 0, type, &status), uset_close);
    return U_SUCCESS(status) ? lettersOf(*icu::UnicodeSet::fromUSet(set.get()))
                             : std::vector<std::string>();
}

std::vector<std::string> digitsOf(const std::string& icuName)
{
    std::vector<std::string> digits;
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::NumberingSystem> system(
        icu::NumberingSystem::createInstance(icu::Locale(icuName.c_str()), status));
    if (U_SUCCESS(status) && !system->isAlgorithmic() && system->getRadix() == 10)
        for (const char32_t digit : codePoints(utf8(system->getDescription())))
            digits.push_back(fromCodePoint(digit));
    return digits.size() == 10 ? digits : digitsOf("en");
}

UScriptCode scriptOf(const std::string& text)
{
    UErrorCode status = U_ZERO_ERROR;
    return uscript_getScript(static_cast<UChar32>(codePoints(text).front()), &status);
}

// Marks of direction and places for a hyphen are no part of a spelling.
bool isSpelled(UChar32 c)
{
    return u_charType(c) != U_FORMAT_CHAR || isInvisible(c);
}

class WordList
{
public:
    void add(const icu::UnicodeString& name)
    {
        icu::UnicodeString word;
        for (int32_t i = 0; i < name.length(); i = name.moveIndex32(i, 1)) {
            const UChar32 c = name.char32At(i);
            if (u_isUWhiteSpace(c))
                end(word);
            else if (isSpelled(c))
                word.append(c);
        }
        end(word);
    }

    void add(const icu::UnicodeString* names, int32_t count)
    {
        for (int32_t i = 0; i < count; ++i)
            add(names[i]);
    }

    std::vector<std::string> words() const { return m_words; }

private:
    void end(icu::UnicodeString& word)
    {
        const std::string text = utf8(word);
        if (!text.empty() && m_seen.insert(text).second)
            m_words.push_back(text);
        word.remove();
    }

    std::vector<std::string> m_words;
    std::set<std::string> m_seen;
};

void addDisplayNames(const icu::Locale& locale, WordList& list)
{
    UDisplayContext contexts[] = {UDISPCTX_NO_SUBSTITUTE};
    const std::unique_ptr<icu::LocaleDisplayNames> names(
        icu::LocaleDisplayNames::createInstance(locale, contexts, 1));
    icu::UnicodeString name;
    for (const char* const* code = icu::Locale::getISOLanguages(); *code != nullptr; ++code)
        list.add(names->languageDisplayName(*code, name));
    for (const char* const* code = icu::Locale::getISOCountries(); *code != nullptr; ++code)
        list.add(names->regionDisplayName(*code, name));
}

void addDates(const icu::Locale& locale, WordList& list)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::DateFormatSymbols symbols(locale, status);
    if (U_FAILURE(status) || *symbols.getLocale(ULOC_ACTUAL_LOCALE, status).getLanguage() == '\0')
        return;
    using Symbols = icu::DateFormatSymbols;
    for (const auto context : {Symbols::FORMAT, Symbols::STANDALONE}) {
        int32_t count = 0;
        const icu::UnicodeString* names = symbols.getMonths(count, context, Symbols::WIDE);
        list.add(names, count);
        names = symbols.getWeekdays(count, context, Symbols::WIDE);
        list.add(names, count);
    }
}

} // namespace

bool isKnownLocale(const std::string& icuName)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UResourceBundle, void (*)(UResourceBundle*)> bundle(
        ures_open(nullptr, icuName.c_str(), &status), ures_close);
    // A language that is not there would get the data of this machine's.
    return U_SUCCESS(status) && status != U_USING_DEFAULT_WARNING;
}

std::string ownName(const std::string& icuName)
{
    if (!isKnownLocale(icuName))
        return std::string();
    const icu::Locale locale(icuName.c_str());
    icu::UnicodeString name;
    return utf8(locale.getDisplayName(locale, name));
}

std::string mainCountry(const std::string& icuName)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale locale(icuName.c_str());
    locale.addLikelySubtags(status);
    icu::UnicodeString name;
    return U_SUCCESS(status) ? utf8(locale.getDisplayCountry(icu::Locale::getEnglish(), name))
                             : std::string();
}

std::vector<std::string> mainExemplars(const std::string& icuName)
{
    return exemplars(icuName, ULOCDATA_ES_STANDARD);
}

std::vector<std::string> auxiliaryExemplars(const std::string& icuName)
{
    return exemplars(icuName, ULOCDATA_ES_AUXILIARY);
}

std::vector<std::string> lettersOfPattern(const std::string& pattern)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeSet set(icu::UnicodeString::fromUTF8(pattern), status);
    return U_SUCCESS(status) ? lettersOf(set) : std::vector<std::string>();
}

std::vector<std::string> punctuation(const std::string& icuName)
{
    if (!isKnownLocale(icuName))
        return {};
    const LocaleData data = openLocale(icuName);
    std::vector<std::string> marks;
    for (const auto type : {ULOCDATA_QUOTATION_START, ULOCDATA_QUOTATION_END,
                            ULOCDATA_ALT_QUOTATION_START, ULOCDATA_ALT_QUOTATION_END}) {
        UErrorCode status = U_ZERO_ERROR;
        char16_t text[8];
        const int32_t length = ulocdata_getDelimiter(data.get(), type, text, 8, &status);
        if (U_SUCCESS(status) && length > 0)
            marks.push_back(utf8(icu::UnicodeString(text, length)));
    }
    const auto quotes = static_cast<std::ptrdiff_t>(marks.size());
    // The hyphens of typesetting look like the plain one; nobody could tell their keys apart.
    for (const std::string& mark : exemplars(icuName, ULOCDATA_ES_PUNCTUATION))
        if (mark != "\u2010" && mark != "\u2011")
            marks.push_back(mark);
    // Those that everybody uses first.
    std::stable_partition(marks.begin() + quotes, marks.end(), [](const std::string& mark) {
        return mark == "…" || mark == "–" || mark == "—";
    });
    return marks;
}

std::vector<std::string> usualDigits(const std::string& icuName)
{
    return digitsOf(isKnownLocale(icuName) ? icuName : "en");
}

std::vector<std::string> nativeDigits(const std::string& icuName)
{
    if (!isKnownLocale(icuName))
        return digitsOf("en");
    // A language in a script that is not its default, as Latin, has nothing of its own.
    const std::vector<std::string> digits = digitsOf(icuName + "@numbers=native");
    const std::vector<std::string> letters = mainExemplars(icuName);
    const UScriptCode script = scriptOf(digits.front());
    const bool isOwn =
        script == USCRIPT_COMMON || letters.empty() || script == scriptOf(letters.back());
    return isOwn ? digits : digitsOf("en");
}

std::vector<std::string> words(const std::string& icuName)
{
    if (!isKnownLocale(icuName))
        return {};
    const icu::Locale locale(icuName.c_str());
    WordList list;
    addDisplayNames(locale, list);
    addDates(locale, list);
    return list.words();
}

} // namespace layouts
