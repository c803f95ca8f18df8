#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "font_files.h"
#include "layout_set.h"
#include "locale_data.h"
#include "shipped.h"
#include "text.h"
#include "usage.h"

using namespace layouts;
using testing::ElementsAreArray;
using testing::SizeIs;

namespace
{

// The English name that the locale data has, in letters that a file name can take.
std::string nameFromIcu(const std::string& icuName)
{
    icu::UnicodeString name;
    icu::Locale(icuName.c_str()).getDisplayName(icu::Locale::getEnglish(), name);
    UErrorCode status = U_ZERO_ERROR;
    name = icu::Normalizer2::getNFDInstance(status)->normalize(name, status);
    std::string result;
    for (int32_t i = 0; i < name.length(); ++i) {
        const char16_t c = name.charAt(i);
        if (c == u' ' || c == u'-')
            result += '_';
        else if (c < 0x80 && u_isalnum(c))
            result += static_cast<char>(c);
    }
    return result;
}

// All languages of the locale data, one for each script that it is written in.
std::set<std::string> languagesOfIcu()
{
    std::set<std::string> names;
    int32_t count = 0;
    const icu::Locale* all = icu::Locale::getAvailableLocales(count);
    for (int32_t i = 0; i < count; ++i) {
        const std::string script = all[i].getScript();
        if (!*all[i].getCountry())
            names.insert(all[i].getLanguage() + (script.empty() ? "" : "_" + script));
    }
    return names;
}

const char kCldrFolder[] = "/usr/share/unicode/cldr/common/main";

// The languages of CLDR's files, which are a few more.
std::set<std::string> languagesOfCldr()
{
    std::set<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(kCldrFolder)) {
        const std::string name = file.path().stem().string();
        const icu::Locale locale(name.c_str());
        if (name != "root" && !*locale.getCountry() && !*locale.getVariant())
            names.insert(name);
    }
    return names;
}

// What stands in the first element of CLDR's file that begins like this; empty if there is none.
std::string cldrText(const std::string& icuName, const std::string& element)
{
    std::ifstream in(std::string(kCldrFolder) + "/" + icuName + ".xml");
    const std::regex wanted("<" + element + "(?:[^>]*[^/])?>([^<]*)<");
    for (std::string line; std::getline(in, line);) {
        std::smatch match;
        if (std::regex_search(line, match, wanted))
            return match[1];
    }
    return std::string();
}

// Three letters for each language, whatever form its code has.
std::string isoCode(const std::string& code)
{
    const icu::Locale locale = icu::Locale::createCanonical(code.c_str());
    const std::string iso = locale.getISO3Language();
    return iso.empty() ? locale.getLanguage() : iso;
}

// The keyboards, as "de(neo)" or "de()", that the keyboard database has for each language.
std::map<std::string, std::set<std::string>> keyboardsByLanguage()
{
    std::ifstream in("/usr/share/X11/xkb/rules/evdev.xml");
    const std::regex element("<(name|iso639Id|variantList|/variantList)>([^<]*)");
    std::map<std::string, std::set<std::string>> keyboards;
    std::string layout;
    std::string variant;
    bool inVariants = false;
    for (std::string line; std::getline(in, line);) {
        std::smatch match;
        if (!std::regex_search(line, match, element))
            continue;
        if (match[1] == "variantList" || match[1] == "/variantList")
            inVariants = match[1] == "variantList";
        else if (match[1] == "name")
            (inVariants ? variant : layout) = match[2];
        else if (match[1] == "iso639Id")
            keyboards[isoCode(match[2])].insert(layout + "(" + (inVariants ? variant : "") + ")");
    }
    return keyboards;
}

TEST(Languages, AreAllShippedOrLeftOutWithAReason)
{
    std::set<std::string> shipped;
    for (const Language& language : languages())
        shipped.insert(language.icuName);
    std::set<std::string> leftOut;
    for (const LeftOut& language : readLeftOut(resource("left_out.tsv")))
        leftOut.insert(language.icuName);
    std::set<std::string> known = languagesOfIcu();
    known.merge(languagesOfCldr());
    for (const std::string& name : known)
        EXPECT_NE(shipped.count(name), leftOut.count(name))
            << name << " (" << nameFromIcu(name) << ") must be in one of the two tables";
    std::set<std::string> codes;
    for (const std::string& name : shipped)
        codes.insert(icu::Locale(name.c_str()).getLanguage());
    EXPECT_GE(codes.size(), 240u);
}

// A language may have several ways of typing, each named by the language and by the way. Yi is
// called by its province as well, of which the layout says nothing.
TEST(Languages, AreNamedByTheLocaleData)
{
    std::set<std::string> names;
    for (const Language& language : languages()) {
        std::string name = nameFromIcu(language.icuName);
        if (!language.letters.empty())
            name = nameFromIcu(icu::Locale(language.icuName.c_str()).getLanguage());
        const bool isOneOfSeveral = !language.letters.empty() &&
                                    (language.name.compare(0, name.size() + 1, name + "_") == 0 ||
                                     "Sichuan_" + language.name == name);
        EXPECT_EQ(language.name, isOneOfSeveral ? language.name : name);
        EXPECT_TRUE(names.insert(language.name).second) << language.name << " twice";
    }
}

std::string inCapitals(const std::string& text)
{
    std::string bytes;
    return icu::UnicodeString::fromUTF8(text).toUpper(icu::Locale::getRoot()).toUTF8String(bytes);
}

// As readers count them: a letter with its marks is one.
int letterCount(const std::string& text)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> letters(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    letters->setText(icu::UnicodeString::fromUTF8(text));
    int count = 0;
    while (letters->next() != icu::BreakIterator::DONE)
        ++count;
    return count;
}

// The key shows how the language's name for itself begins, or one of its words; the Arabic article
// aside.
TEST(Languages, AreShownByTheirOwnNames)
{
    std::map<std::string, std::string> layouts;
    for (const Language& language : languages()) {
        const auto other = layouts.emplace(language.label, language.name);
        EXPECT_TRUE(other.second) << language.name << " and " << other.first->second;
        EXPECT_GE(letterCount(language.label), 2) << language.name;
        EXPECT_LE(letterCount(language.label), 4) << language.name;
        const std::string own =
            language.ownName.empty() ? ownName(language.icuName) : language.ownName;
        const std::string name = " " + inCapitals(own);
        const std::string label = inCapitals(language.label);
        bool begins = false;
        for (const char* before : {" ", " ال", "(", "（", "-", "’"})
            begins = begins || name.find(before + label) != std::string::npos;
        EXPECT_TRUE(begins) << language.name << ": " << language.label << " for" << name;
    }
}

// The table has a name where the locale data has none, or gives it to another layout, too.
TEST(Languages, AreNamedInTheTableWhereTheLocaleDataDoesNot)
{
    std::set<std::string> locales;
    for (const Language& language : languages()) {
        const bool isFirst = locales.insert(language.icuName).second;
        const std::string own = ownName(language.icuName);
        EXPECT_FALSE(own.empty() && language.ownName.empty()) << language.name;
        if (own.empty() || language.ownName.empty())
            continue;
        EXPECT_FALSE(isFirst && languageOf(language.name).letters.empty()) << language.name;
        EXPECT_NE(own, language.ownName) << language.name;
    }
}

// Of a few languages CLDR's files have what the locale data lacks.
TEST(Languages, HaveTheLettersAndTheNameOfCldrsFiles)
{
    size_t found = 0;
    for (const Language& language : languages()) {
        if (isKnownLocale(language.icuName))
            continue;
        const std::string letters = cldrText(language.icuName, "exemplarCharacters");
        if (letters.empty())
            continue;
        ++found;
        EXPECT_EQ(mainLetters(language), lettersOfPattern(letters)) << language.name;
        EXPECT_EQ(language.ownName,
                  cldrText(language.icuName, "language type=\"" + language.icuName + "\""));
    }
    EXPECT_GT(found, 0u);
}

icu::Locale withLikelySubtags(const std::string& icuName)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale locale(icuName.c_str());
    locale.addLikelySubtags(status);
    return locale;
}

// The same language in the same script.
void expectTheSame(const std::string& leftOut, const std::string& shipped)
{
    ASSERT_NE(findLanguage(languages(), shipped), nullptr) << shipped;
    EXPECT_STREQ(withLikelySubtags(leftOut).getLanguage(),
                 withLikelySubtags(shipped).getLanguage());
    EXPECT_STREQ(withLikelySubtags(leftOut).getScript(), withLikelySubtags(shipped).getScript());
}

// The same language, whose keys an input method makes the text of.
void expectTheSameKeys(const std::string& leftOut, const std::string& shipped)
{
    ASSERT_NE(findLanguage(languages(), shipped), nullptr) << shipped;
    EXPECT_FALSE(findLanguage(languages(), shipped)->letters.empty());
    EXPECT_STREQ(withLikelySubtags(leftOut).getLanguage(),
                 withLikelySubtags(shipped).getLanguage());
}

void expectTheSameLetters(const std::string& leftOut, const std::string& shipped)
{
    EXPECT_NE(findLanguage(languages(), shipped), nullptr) << shipped;
    EXPECT_EQ(mainExemplars(leftOut), mainExemplars(shipped));
}

// Of all installed ones. Bitmaps and samples, which the keyboard cannot draw with either, are none.
std::vector<std::unique_ptr<Font>> installedFonts()
{
    std::vector<std::unique_ptr<Font>> fonts;
    for (const auto& file : std::filesystem::recursive_directory_iterator("/usr/share/fonts")) {
        if (!file.is_regular_file())
            continue;
        try {
            fonts.emplace_back(new Font(file.path().string()));
        } catch (const std::runtime_error&) {
            continue;
        }
    }
    return fonts;
}

// The keyboard has one font for everything, so a font of these letters alone is of no use to it.
void expectNoFont(const std::string& leftOut, const std::string&)
{
    const char32_t letter = codePoints(mainExemplars(leftOut).back()).front();
    size_t with = 0;
    for (const std::unique_ptr<Font>& font : installedFonts()) {
        with += font->hasGlyph(letter) ? 1 : 0;
        EXPECT_FALSE(font->hasGlyph(letter) && font->hasGlyph(U'a'));
    }
    EXPECT_GT(with, 0u) << "no font of the letters alone, as fonts-unifont has one";
}

// Behind the reason may stand a layout that has a keyboard made for the language, too.
void expectNoLetters(const std::string& leftOut, const std::string& rest)
{
    EXPECT_TRUE(mainExemplars(leftOut).empty());
    EXPECT_EQ(cldrText(leftOut, "exemplarCharacters"), "");
    if (rest.empty())
        return;
    const std::string tail = " has its keyboard";
    ASSERT_GT(rest.size(), 2 + tail.size());
    EXPECT_EQ(rest.substr(0, 2) + rest.substr(rest.size() - tail.size()), "; " + tail);
    const Language& with = languageOf(rest.substr(2, rest.size() - 2 - tail.size()));
    const std::set<std::string> keyboards = keyboardsByLanguage()[isoCode(leftOut)];
    EXPECT_TRUE(keyboards.count(with.xkbLayout + "(" + with.xkbVariant + ")")) << with.name;
}

struct Reason {
    const char* begins;
    void (*check)(const std::string& leftOut, const std::string& rest);
};

const Reason kReasons[] = {
    {"the same as ", expectTheSame},
    {"the same keys as ", expectTheSameKeys},
    {"the same letters as ", expectTheSameLetters},
    {"no packaged font has ", expectNoFont},
    {"no letters in the locale data", expectNoLetters},
};

TEST(Languages, AreLeftOutForReasonsThatHold)
{
    for (const LeftOut& language : readLeftOut(resource("left_out.tsv"))) {
        SCOPED_TRACE(language.icuName + ": " + language.reason);
        const auto reason =
            std::find_if(std::begin(kReasons), std::end(kReasons), [&](const Reason& known) {
                return language.reason.rfind(known.begins, 0) == 0;
            });
        ASSERT_NE(reason, std::end(kReasons)) << "a reason that no test checks";
        reason->check(language.icuName, language.reason.substr(std::strlen(reason->begins)));
    }
}

// Of those whose codes the keyboard database has; several may be one language for the locale data.
TEST(Languages, OfTheKeyboardDatabaseAreShippedOrLeftOut)
{
    std::set<std::string> known;
    for (const Language& language : languages())
        known.insert(isoCode(language.icuName));
    for (const LeftOut& language : readLeftOut(resource("left_out.tsv")))
        known.insert(isoCode(language.icuName));
    const std::map<std::string, std::set<std::string>> keyboards = keyboardsByLanguage();
    EXPECT_GT(keyboards.size(), 250u);
    for (const auto& language : keyboards)
        EXPECT_TRUE(known.count(language.first)) << language.first;
}

TEST(Languages, HaveAFileEachAndNoOthersAreThere)
{
    std::vector<std::string> names;
    for (const Language& language : languages())
        names.push_back(language.name);
    std::sort(names.begin(), names.end());
    EXPECT_THAT(shippedLayouts(), ElementsAreArray(names));
}

// The means of all layouts; a test of each layout holds it alone.
TEST(Languages, AreTypedWithFewPresses)
{
    std::vector<double> presses;
    size_t words = 0;
    size_t untypable = 0;
    for (const Language& language : languages()) {
        const Usage usage = usageOf(shippedKeyMap(language.name), language);
        words += usage.words;
        untypable += usage.untypable.size();
        if (usage.words > 0)
            presses.push_back(usage.presses);
    }
    std::sort(presses.begin(), presses.end());
    EXPECT_GT(words, 100000u);
    EXPECT_LE(untypable * 1000, words);
    EXPECT_LE(presses[presses.size() / 2], 4.82);
}

// The page has what each layout costs; a change may only lower it.
TEST(Languages, CostNoMorePressesThanThePageSays)
{
    std::ifstream page(DOCS "/languages.md");
    size_t rows = 0;
    for (std::string line; std::getline(page, line);) {
        std::vector<std::string> fields;
        std::istringstream in(line);
        for (std::string field; std::getline(in, field, '|');)
            fields.push_back(field);
        const Language* language =
            fields.size() == 10
                ? findLanguage(languages(), fields[1].substr(1, fields[1].size() - 2))
                : nullptr;
        if (language == nullptr || fields[5] == " - ")
            continue;
        ++rows;
        EXPECT_LE(usageOf(shippedKeyMap(language->name), *language).presses,
                  std::stod(fields[5]) + 0.005)
            << language->name;
    }
    EXPECT_GT(rows, 200u);
}

TEST(DefaultCatalogue, BeginsWithEnglishAndGermanAndIsShort)
{
    const std::vector<std::string> names = shippedCatalogue().names;
    ASSERT_GE(names.size(), 2u);
    EXPECT_EQ(names[0], "English");
    EXPECT_EQ(names[1], "German");
    EXPECT_LE(names.size(), 6u);
}

TEST(DefaultCatalogue, FitsTheScreen)
{
    const Catalogue catalogue = shippedCatalogue();
    const Cell& last = catalogue.cells.back();
    EXPECT_THAT(catalogue.cells, SizeIs(67));
    EXPECT_EQ((last.column + last.width) * (catalogue.gapX + catalogue.cellWidth) + catalogue.gapX,
              1302);
    EXPECT_EQ((last.row + last.height) * (catalogue.gapY + catalogue.cellHeight) + catalogue.gapY,
              456);
}

TEST(ShippedFolder, HasNoFinding)
{
    CheckOptions options;
    for (const Language& language : languages())
        options.known.insert(language.name);
    EXPECT_THAT(lines(Checker(resource("schema")).check(readLayoutSet(shippedFolder()), options)),
                testing::IsEmpty());
}

} // namespace
