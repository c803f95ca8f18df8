#include <algorithm>
#include <map>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core_walk.h"
#include "font_files.h"
#include "json_file.h"
#include "locale_data.h"
#include "shipped.h"
#include "text.h"
#include "usage.h"

using namespace layouts;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace
{

// Each shipped key map gets these tests, whether or not anybody thought of it.
class Layout : public testing::TestWithParam<std::string>
{
};

std::string result(const Legend& legend, const Key& key)
{
    return legend.text + "/" + std::to_string(key.keyCode);
}

TEST_P(Layout, HasNoFindingWithItsFont)
{
    Catalogue catalogue = shippedCatalogue();
    catalogue.names = {GetParam()};
    const LayoutSet alone = {
        {kCatalogueName, writeCatalogue(catalogue)},
        {keyMapName(GetParam()), readFile(keyMapFile(shippedFolder(), GetParam()))}};
    FontCache fonts;
    CheckOptions options;
    options.font = [&](const std::string& layout) { return &fonts.open(languageOf(layout).font); };
    EXPECT_THAT(lines(Checker(resource("schema")).check(alone, options)), IsEmpty());
}

TEST_P(Layout, CoversItsAlphabetAndAscii)
{
    const KeyMap keyMap = shippedKeyMap(GetParam());
    std::string missing;
    const Language& language = languageOf(GetParam());
    ASSERT_THAT(mainLetters(language), Not(IsEmpty()));
    for (const Spelling& spelling : spellAll(keyMap, neededTexts(language)))
        if (spelling.keys.empty())
            missing += spelling.text + " (" + describe(spelling.text) + ") ";
    EXPECT_EQ(missing, "");
}

// Words that the locale data spells in another language's letters may be out of reach.
TEST_P(Layout, TypesTheWordsOfItsLanguage)
{
    const Usage usage = usageOf(shippedKeyMap(GetParam()), languageOf(GetParam()));
    EXPECT_LE(usage.untypable.size() * 100, usage.words) << testing::PrintToString(usage.untypable);
    EXPECT_LE(usage.presses, 6.0);
    EXPECT_LE(usage.behindAlt, 0.05);
}

TEST_P(Layout, HasTheDigitsAndThePunctuationOfItsLanguage)
{
    const std::map<std::string, Place> places = placesOf(shippedKeyMap(GetParam()));
    const Language& language = languageOf(GetParam());
    const std::vector<std::string> ascii = usualDigits("en");
    for (const auto& digits : {ascii, digitsOf(language), nativeDigitsOf(language)})
        for (const std::string& digit : digits)
            EXPECT_TRUE(places.count(digit)) << digit;
    for (const std::string& digit : ascii) {
        const bool isUsual = digitsOf(language) == ascii;
        EXPECT_FALSE(isUsual && places.at(digit).face->symbol) << digit;
    }
    for (const std::string& mark : punctuationOf(language))
        EXPECT_TRUE(places.count(mark) || !isSign(mark)) << mark << " " << describe(mark);
    for (const std::string& letter : auxiliaryLetters(language)) {
        const bool isJoiner = isInvisible(singleCodePoint(letter));
        EXPECT_TRUE(!isJoiner || places.count(letter)) << describe(letter);
    }
}

// It is typed too rarely to be worth a second key.
TEST_P(Layout, HasEachJoinerOnce)
{
    const KeyMap keyMap = shippedKeyMap(GetParam());
    std::set<std::string> joiners;
    for (const Face& face : kFaces)
        for (const Key& key : keysOf(keyMap, face)) {
            const std::string text = delivered(legendOf(key, face));
            EXPECT_TRUE(!isInvisible(singleCodePoint(text)) || joiners.insert(text).second)
                << describe(text);
        }
}

// Or an ending of web addresses, which the key shows.
TEST_P(Layout, TypesOneLetterWithAKey)
{
    const KeyMap keyMap = shippedKeyMap(GetParam());
    for (const Face& face : kFaces)
        for (const Key& key : keysOf(keyMap, face)) {
            const std::string text = delivered(legendOf(key, face));
            const std::vector<char32_t> parts = codePoints(text);
            const bool isEnding = text == ".com" || text == ".org";
            for (size_t i = 1; i < parts.size() && !isEnding && !key.isSpecial; ++i)
                EXPECT_TRUE(isMark(fromCodePoint(parts[i]))) << text;
        }
}

// The keys of 0 to 9 on a face; fewer than ten if it lacks some.
std::vector<size_t> digitKeys(const KeyMap& keyMap, const Face& face)
{
    std::vector<size_t> places;
    const std::vector<Key>& keys = keysOf(keyMap, face);
    for (char digit = '0'; digit <= '9'; ++digit)
        for (size_t i = 0; i < keys.size(); ++i)
            if (delivered(legendOf(keys[i], face)) == std::string(1, digit))
                places.push_back(i);
    return places;
}

// From 1 to 9, and 0 at either end, as computer keyboards have it; on one of the first two faces
// where the language is written with them.
TEST_P(Layout, HasTheDigitsInARow)
{
    const KeyMap keyMap = shippedKeyMap(GetParam());
    const bool isUsual = digitsOf(languageOf(GetParam())) == usualDigits("en");
    bool isRow = false;
    for (const Face& face : kFaces) {
        if (isUsual && face.symbol)
            continue;
        const std::vector<size_t> keys = digitKeys(keyMap, face);
        isRow = isRow || (keys.size() == 10 && std::is_sorted(keys.begin() + 1, keys.end()) &&
                          (keys[0] < keys[1] || keys[0] > keys[9]));
    }
    EXPECT_TRUE(isRow);
}

// Web addresses are what people type most. Dzongkha and Khmer leave too few keys for the full stop,
// which they do not end sentences with.
TEST_P(Layout, HasTheSignsOfAddressesOnTheFirstFace)
{
    const std::map<std::string, Place> places = placesOf(shippedKeyMap(GetParam()));
    for (const char* sign : {"@", "/", "."}) {
        const bool hasNoPlace = *sign == '.' && (GetParam() == "Dzongkha" || GetParam() == "Khmer");
        EXPECT_EQ(places.at(sign).face == kFaces, !hasNoPlace) << sign;
    }
}

// A page that takes only digits looks at the code, from 48 for zero.
TEST_P(Layout, GivesDigitsTheirCode)
{
    const KeyMap keyMap = shippedKeyMap(GetParam());
    for (const Face& face : kFaces)
        for (const Key& key : keysOf(keyMap, face)) {
            const int value = digitValue(delivered(legendOf(key, face)));
            if (value >= 0 && !key.isSpecial) {
                EXPECT_EQ(key.keyCode, 48 + value) << face.name;
            }
        }
}

TEST_P(Layout, LetsTheDriversScriptsReachTheirKeys)
{
    CoreWalk keyboard(GetParam());
    const KeyMap keyMap = shippedKeyMap(GetParam());
    const auto plain = [&](size_t key) {
        return result(keyMap.defaults[key].plain, keyMap.defaults[key]);
    };
    const auto shifted = [&](size_t key) {
        return result(keyMap.defaults[key].shifted, keyMap.defaults[key]);
    };
    const auto symbol = [&](size_t key) {
        return result(keyMap.symbols[key].plain, keyMap.symbols[key]);
    };
    EXPECT_THAT(runScript(keyboard, "clear", ""), ElementsAre("Back/8"));
    EXPECT_THAT(runScript(keyboard, "clear-all", ""), ElementsAre("ClearAll/12"));
    EXPECT_THAT(runScript(keyboard, "submit", ""), ElementsAre("Enter/13"));
    EXPECT_THAT(runScript(keyboard, "space", ""), ElementsAre(" /32"));
    EXPECT_THAT(runScript(keyboard, "shift", ""), ElementsAre("Shift", "Shift"));
    EXPECT_THAT(runScript(keyboard, "shift-right", "1"), ElementsAre("Shift", shifted(45)));
    EXPECT_THAT(runScript(keyboard, "shift-lock", "2"), ElementsAre("Shift", "Shift", shifted(46)));
    EXPECT_THAT(runScript(keyboard, "alt", ""), ElementsAre("Alt", "Alt"));
    EXPECT_THAT(runScript(keyboard, "alt-right", "1"), ElementsAre("Alt", symbol(31)));
    EXPECT_THAT(runScript(keyboard, "alt-shift", ""), ElementsAre("Alt", "Shift"));
    EXPECT_THAT(runScript(keyboard, "language", "2"), ElementsAre("language", "language"));
    EXPECT_THAT(runScript(keyboard, "show", ""), ElementsAre(plain(3), plain(3)));
    EXPECT_THAT(runScript(keyboard, "hide", ""), ElementsAre("hidden"));
    EXPECT_THAT(runScript(keyboard, "right", "3"), ElementsAre(plain(3)));
    EXPECT_THAT(runScript(keyboard, "left", "1"), ElementsAre(plain(15)));
    EXPECT_THAT(runScript(keyboard, "down", "1"), ElementsAre(plain(16)));
    EXPECT_THAT(runScript(keyboard, "up", "1"), ElementsAre(plain(58)));
    EXPECT_THAT(runScript(keyboard, "loop-left", ""), ElementsAre("language"));
    EXPECT_THAT(runScript(keyboard, "loop-right", ""), ElementsAre(plain(15)));
    EXPECT_THAT(runScript(keyboard, "loop-up", ""), ElementsAre(plain(58)));
    EXPECT_THAT(runScript(keyboard, "loop-down", ""), ElementsAre(plain(16)));
}

TEST_P(Layout, TypesItsAlphabetWithArrowsAndOk)
{
    CoreWalk keyboard(GetParam());
    const KeyMap keyMap = shippedKeyMap(GetParam());
    for (const Spelling& spelling : spellAll(keyMap, neededTexts(languageOf(GetParam())))) {
        ASSERT_FALSE(spelling.keys.empty()) << spelling.text;
        ASSERT_EQ(nfc(keyboard.type(spelling.keys)), spelling.text) << describe(spelling.text);
    }
}

std::string nameOf(const testing::TestParamInfo<std::string>& info)
{
    return info.param;
}

INSTANTIATE_TEST_SUITE_P(Shipped, Layout, testing::ValuesIn(shippedLayouts()), nameOf);

} // namespace
