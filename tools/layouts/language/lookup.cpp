// Finds a language by what people call it.
#include "lookup.h"

#include <algorithm>
#include <stdexcept>

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>

#include "territory.h"

namespace layouts
{
namespace
{

constexpr size_t kSuggestions = 3;

bool isCounted(UChar32 c)
{
    return !u_isUWhiteSpace(c) && !u_ispunct(c) &&
           ublock_getCode(c) != UBLOCK_COMBINING_DIACRITICAL_MARKS;
}

icu::UnicodeString folded(const icu::UnicodeString& text)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString folding = text;
    folding.foldCase();
    const icu::UnicodeString apart =
        icu::Normalizer2::getNFKDInstance(status)->normalize(folding, status);
    icu::UnicodeString result;
    for (int32_t i = 0; i < apart.length(); i = apart.moveIndex32(i, 1))
        if (isCounted(apart.char32At(i)))
            result.append(apart.char32At(i));
    return result;
}

// All that the language is called, the most exact names first.
std::vector<icu::UnicodeString> namesOf(const Language& language)
{
    const icu::Locale locale = icu::Locale::createCanonical(language.icuName.c_str());
    const auto plain = [](const std::string& text) { return icu::UnicodeString::fromUTF8(text); };
    icu::UnicodeString own, english, ownLanguage, englishLanguage;
    locale.getDisplayName(locale, own);
    locale.getDisplayName(icu::Locale::getEnglish(), english);
    if (!language.ownName.empty())
        own = plain(language.ownName);
    locale.getDisplayLanguage(locale, ownLanguage);
    locale.getDisplayLanguage(icu::Locale::getEnglish(), englishLanguage);
    return {plain(language.name),
            plain(language.icuName),
            own,
            english,
            plain(locale.getISO3Language()),
            ownLanguage,
            englishLanguage};
}

// How many characters must be put in, left out or replaced to make one of the other.
size_t distance(const icu::UnicodeString& one, const icu::UnicodeString& other)
{
    std::vector<size_t> row(static_cast<size_t>(other.length()) + 1);
    for (size_t i = 0; i < row.size(); ++i)
        row[i] = i;
    for (int32_t i = 0; i < one.length(); ++i) {
        size_t before = row[0]++;
        for (int32_t j = 0; j < other.length(); ++j) {
            size_t& here = row[static_cast<size_t>(j) + 1];
            const size_t replaced = before + (one[i] == other[j] ? 0 : 1);
            before = here;
            here = std::min({replaced, before + 1, row[static_cast<size_t>(j)] + 1});
        }
    }
    return row.back();
}

// A name is near when at most a third of it differs.
std::vector<std::string> nearestNames(const std::vector<Language>& languages,
                                      const icu::UnicodeString& wanted)
{
    std::vector<std::pair<size_t, std::string>> near;
    for (const Language& language : languages) {
        size_t best = SIZE_MAX;
        for (const icu::UnicodeString& name : namesOf(language))
            best = std::min(best, distance(wanted, folded(name)));
        if (best * 3 <= static_cast<size_t>(wanted.length()) + 1)
            near.emplace_back(best, language.name);
    }
    std::stable_sort(near.begin(), near.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::string> names;
    for (const auto& candidate : near)
        if (names.size() < kSuggestions)
            names.push_back(candidate.second);
    return names;
}

} // namespace

const Language& meantLanguage(const std::vector<Language>& languages, const std::string& text)
{
    // As it is spelled: "yi" is a code, and "Yi" another language's name.
    if (const Language* exact = findLanguage(languages, text))
        return *exact;
    const icu::UnicodeString wanted = folded(icu::UnicodeString::fromUTF8(text));
    const Language* meant = nullptr;
    ptrdiff_t rank = 0;
    for (const Language& language : languages) {
        const std::vector<icu::UnicodeString> names = namesOf(language);
        const auto found = std::find_if(names.begin(), names.end(),
                                        [&](const auto& name) { return folded(name) == wanted; });
        const ptrdiff_t at = found - names.begin();
        if (found != names.end() && (meant == nullptr || at < rank)) {
            meant = &language;
            rank = at;
        }
    }
    if (meant == nullptr)
        meant = layoutForLocale(languages, text);
    if (meant != nullptr && !wanted.isEmpty())
        return *meant;
    std::string suggestion;
    for (const std::string& name : nearestNames(languages, wanted))
        suggestion += (suggestion.empty() ? "; did you mean " : " or ") + name;
    if (suggestion.empty())
        suggestion = "; layouts list names all";
    throw std::runtime_error(text + ": no such layout" + suggestion);
}

} // namespace layouts
