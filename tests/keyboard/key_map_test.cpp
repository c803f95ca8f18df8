// The key maps: four key sets from one file, their pixels, and what a bad file leaves behind.

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <json/json.h>

#include "Language_Parser.h"
#include "layout_folder.h"
#include "layout_sample.h"
#include "log_capture.h"
#include "row.h"
#include "steps.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using namespace steps;
using sample::BadFile;
using testing::IsEmpty;
using testing::SizeIs;

const Steps kAsked = steps::parser("getKeyMap", "called\n");

// One of the four key sets, and the first key of it in the sample.
struct Choice : Row {
    bool shift, alt;
    Button_t first;
};

const Choice kChoices[] = {
    {"Default", false, false, {"a", {4, 6, 60, 50}, 0, false, false, 65, 97, -1, 1, -4, 4}},
    {"DefaultShift", true, false, {"A", {4, 6, 60, 50}, 0, false, false, 65, 65, -1, 1, -4, 4}},
    {"Symbol", false, true, {"1", {4, 6, 60, 50}, 0, false, false, 49, 49, -1, 1, -4, 4}},
    {"SymbolShift", true, true, {"!", {4, 6, 60, 50}, 0, false, false, 49, 33, -1, 1, -4, 4}},
};

class KeyMapTest : public testing::Test
{
protected:
    KeyMapTest() { m_folder.writeCatalogue(asJson(sample::catalogue())); }

    void writeEnglish(const std::string& json) { m_folder.writeKeyMap("English", json); }
    void writeEnglish()
    {
        writeEnglish(asJson(sample::keySet("English"), sample::keySet("English", true)));
    }

    // A parser whose current layout is "English".
    LanguageParser& english()
    {
        m_parser.reset(new LanguageParser);
        m_parser->onLayoutchanged(m_english);
        takeTrace();
        return *m_parser;
    }

    Keys& keys(const Choice& choice)
    {
        return m_parser->getKeyMap(m_english, choice.shift, choice.alt);
    }
    Keys& defaultKeys() { return keys(kChoices[0]); }

    // The sizes of the sets, in the order of the choices.
    std::vector<size_t> sizes()
    {
        std::vector<size_t> counts;
        for (const Choice& choice : kChoices)
            counts.push_back(keys(choice).size());
        return counts;
    }

    LayoutFolder m_folder;
    LogCapture m_log;
    std::string m_english = "English";
    std::unique_ptr<LanguageParser> m_parser;
};

const std::vector<size_t> kNoKeys = {0, 0, 0, 0};
const std::vector<size_t> kAllKeys(4, sample::kKeys);

using KeySet = WithRows<KeyMapTest, Choice>;

TEST_P(KeySet, HoldsItsKeysWhateverTheNameSaysAndIsReadAgainWhileItIsEmpty)
{
    english(); // no file yet
    EXPECT_THAT(keys(GetParam()), IsEmpty());
    EXPECT_THAT(keys(GetParam()), IsEmpty());
    expectTrace(kAsked + keyMapNotRead() + kAsked + keyMapNotRead());

    writeEnglish();
    const Keys whole = sample::buttons(sample::keySet("English", GetParam().alt), GetParam().shift);
    EXPECT_EQ(keys(GetParam()), whole);
    EXPECT_EQ(whole[0], GetParam().first);
    expectTrace(kAsked + keyMapRead());
    for (std::string name : {"German", "", "English"}) {
        EXPECT_EQ(m_parser->getKeyMap(name, GetParam().shift, GetParam().alt), whole);
        expectTrace(kAsked);
    }
}

INSTANTIATE_TEST_SUITE_P(Faces, KeySet, testing::ValuesIn(kChoices), RowName());

TEST_F(KeyMapTest, OnlyTheExactWordNullMakesAnEmptyLabelAndAllOthersAreKeptAsBytes)
{
    const Lines texts = {"NULL",
                         "null",
                         " NULL",
                         "NULL ",
                         "Null",
                         "NULLS",
                         "nULL",
                         "\xE4\xBD\xA0\xE5\xA5\xBD",
                         "%s a label too long for the bytes inside a string"};
    std::vector<Key> written(texts.size());
    for (size_t i = 0; i < texts.size(); ++i)
        written[i].text = written[i].shiftText = texts[i];
    writeEnglish(asJson(written, written));
    english();
    for (const Choice& choice : kChoices) {
        SCOPED_TRACE(choice.name);
        Lines found;
        for (const Button_t& each : keys(choice))
            found.push_back(each.text);
        ASSERT_THAT(found, SizeIs(texts.size()));
        EXPECT_EQ(found[0], "");
        found[0] = "NULL";
        EXPECT_EQ(found, texts);
    }
}

TEST_F(KeyMapTest, AMissingSymbolSetIsEmptyAndReadAgainOnEachCall)
{
    writeEnglish("{\"Keys\": {\"KeyMode_Default\": [{\"text\": \"a\"}, {\"text\": \"b\"}]}}");
    english();
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(sizes(), (std::vector<size_t>{2, 2, 0, 0}));
        expectTrace(kAsked + kAsked + kAsked + keyMapRead() + kAsked + keyMapRead());
    }
}

TEST_F(KeyMapTest, TheTwoSetsMayDifferInLengthAndIdsAreTakenAsTheyStand)
{
    Key symbol = sample::keySet("English", true)[0];
    symbol.id = -7;
    std::vector<Key> defaults = sample::keySet("English");
    defaults[1].id = 41;
    writeEnglish(asJson(defaults, {symbol}));
    english();
    EXPECT_EQ(sizes(), (std::vector<size_t>{8, 8, 1, 1}));
    EXPECT_EQ(keys(kChoices[3])[0].id, -7);
    EXPECT_EQ(keys(kChoices[0])[1].id, 41);
    EXPECT_EQ(keys(kChoices[0])[1].rect.positionX, 68) << "the place in the list counts";
}

TEST_F(KeyMapTest, BeforeAnyLayoutTheUnnamedKeyMapIsRead)
{
    writeEnglish();
    m_parser.reset(new LanguageParser);
    EXPECT_EQ(sizes(), kNoKeys);
    m_folder.writeKeyMap("", asJson(sample::keySet("English"), sample::keySet("English", true)));
    m_parser.reset(new LanguageParser);
    takeTrace();
    EXPECT_EQ(sizes(), kAllKeys);
    expectTrace(kAsked + kAsked + kAsked + kAsked);
}

TEST_F(KeyMapTest, TheNameIsUsedAsItStandsAndAnUnknownOneEmptiesTheSets)
{
    writeEnglish();
    m_folder.writeKeyMap("Odd name%s", asJson({sample::keySet("English")[0]}, {}));
    for (std::string name : {"", "english", "Klingon"}) {
        english();
        m_parser->onLayoutchanged(name);
        expectTrace(layoutChosen(name) + keyMapNotRead());
        EXPECT_EQ(sizes(), kNoKeys);
    }
    std::string odd = "Odd name%s";
    english();
    m_parser->onLayoutchanged(odd);
    expectTrace(layoutChosen(odd) + keyMapRead());
    EXPECT_EQ(odd, "Odd name%s");
    EXPECT_EQ(sizes(), (std::vector<size_t>{1, 1, 0, 0})) << "nothing of the layout before";
}

TEST_F(KeyMapTest, ReadingTheSameFileAgainDoesNotDoubleTheKeys)
{
    writeEnglish();
    english();
    EXPECT_TRUE(m_parser->ParseCurrentLayoutKeyMaps());
    EXPECT_EQ(sizes(), kAllKeys);
}

TEST_F(KeyMapTest, AMissingCatalogueIsTriedAtEachReading)
{
    m_folder.removeCatalogue();
    writeEnglish();
    m_parser.reset(new LanguageParser);
    takeTrace();
    m_parser->onLayoutchanged(m_english);
    const Steps success =
        steps::parser("ParseCurrentLayoutKeyMaps", "Current LayoutKeyMap Parse Successfully !\n");
    expectTrace(layoutChosen("English") + keyMapNotRead() + catalogueNotRead() + success);

    m_folder.writeCatalogue(asJson(sample::catalogue()));
    EXPECT_TRUE(m_parser->ParseCurrentLayoutKeyMaps());
    EXPECT_EQ(defaultKeys()[0].rect.width, 60);
    takeTrace();
    EXPECT_TRUE(m_parser->ParseCurrentLayoutKeyMaps());
    expectTrace(keyMapRead()); // the catalogue is known now
}

TEST_F(KeyMapTest, AKeyBeyondThePositionTableHasAnEmptyRectangle)
{
    std::vector<Key> written = sample::keySet("English");
    written.push_back({8, "b", false, false, 66, 98, 1, 0, 0, 0, "b", 98});
    writeEnglish(asJson(written, written));
    english();
    for (const Choice& choice : kChoices) {
        ASSERT_THAT(keys(choice), SizeIs(9)) << choice.name;
        EXPECT_EQ(keys(choice)[8],
                  (Button_t{"b", {0, 0, 0, 0}, 8, false, false, 66, 98, 1, 0, 0, 0}));
    }
}

TEST_F(KeyMapTest, MissingMembersReadAsZeroFalseAndEmpty)
{
    writeEnglish("{\"Keys\": {\"KeyMode_Default\": [{}], \"KeyMode_Symbol\": [{}]}}");
    english();
    for (const Choice& choice : kChoices)
        EXPECT_EQ(keys(choice), (Keys{{"", {4, 6, 60, 50}, 0, false, false, 0, 0, 0, 0, 0, 0}}));
}

TEST_F(KeyMapTest, ValuesOfOtherTypesFollowTheLibrarysConversions)
{
    writeEnglish("/* numbers */ {\"Keys\": {\"KeyMode_Default\": [{\"id\": true, \"text\": 5,"
                 " \"isSpecial\": 1, \"isLanguage\": null, \"keyCode\": 8.9,"
                 " \"character\": null, \"left_button\": -2147483648,"
                 " \"right_button\": 2147483647, \"shift_text\": false,"
                 " \"shiftKeyCharacter\": 7, \"unknown\": {}}]}}");
    english();
    const int32_t lowest = -2147483647 - 1;
    EXPECT_EQ(keys(kChoices[0]),
              (Keys{{"5", {4, 6, 60, 50}, 1, true, false, 8, 0, lowest, 2147483647, 0, 0}}));
    EXPECT_EQ(keys(kChoices[1]),
              (Keys{{"false", {4, 6, 60, 50}, 1, true, false, 8, 7, lowest, 2147483647, 0, 0}}));
}

TEST_F(KeyMapTest, WithoutKeysTheFileIsReadAndTheSetsAreEmpty)
{
    for (const char* text :
         {"{}", "{\"Keys\": {}}", "{\"Keys\": null}", "{\"Keys\": {\"KeyMode_Default\": []}}"}) {
        SCOPED_TRACE(text);
        writeEnglish(text);
        english();
        EXPECT_TRUE(m_parser->ParseCurrentLayoutKeyMaps());
        expectTrace(keyMapRead());
        EXPECT_EQ(sizes(), kNoKeys);
    }
}

TEST_F(KeyMapTest, AMalformedOrUnreadableFileEmptiesTheSetsAndIsTriedAgain)
{
    for (const char* text : {"", "keys", "{\"Keys\": {\"KeyMode_Default\": [{\"id\": 0", "{}"}) {
        SCOPED_TRACE(text);
        writeEnglish();
        english();
        writeEnglish(text);
        if (text == std::string("{}")) // as good as none, if it cannot be read
            m_folder.makeUnreadable(LayoutFolder::keyMapPath("English"));
        m_parser->onLayoutchanged(m_english);
        expectTrace(layoutChosen("English") + keyMapNotRead());
        EXPECT_FALSE(m_parser->ParseCurrentLayoutKeyMaps());
        EXPECT_EQ(sizes(), kNoKeys);
        writeEnglish();
        EXPECT_EQ(sizes(), kAllKeys);
    }
}

// A second key that the JSON library cannot convert, behind a good one.
const BadFile kImpossibleKeys[] = {
    {"IdIsAWord", "{\"id\": \"1\"}"},
    {"IdBeyond32Bits", "{\"id\": 3000000000}"},
    {"TextIsAList", "{\"text\": []}"},
    {"TextIsAnObject", "{\"text\": {\"a\": 1}}"},
    {"IsSpecialIsAWord", "{\"isSpecial\": \"true\"}"},
    {"IsLanguageIsAnObject", "{\"isLanguage\": {\"a\": 1}}"},
    {"KeyCodeIsAWord", "{\"keyCode\": \"A\"}"},
    {"CharacterIsAList", "{\"character\": [1]}"},
    {"LeftIsAWord", "{\"left_button\": \"x\"}"},
    {"RightIsAWord", "{\"right_button\": \"x\"}"},
    {"UpIsAWord", "{\"up_button\": \"x\"}"},
    {"DownIsAWord", "{\"down_button\": \"x\"}"},
    {"ShiftTextIsAnObject", "{\"shift_text\": {\"a\": 1}}"},
    {"ShiftCharacterIsAWord", "{\"shiftKeyCharacter\": \"x\"}"},
    {"KeyIsANumber", "5"},
};

class ImpossibleKey : public WithRows<KeyMapTest, BadFile>
{
protected:
    // In one of the two sets, or in both.
    void expectErrorWith(const std::string& defaultKey, const std::string& symbolKey)
    {
        writeEnglish("{\"Keys\": {\"KeyMode_Default\": [{\"text\": \"good\"}" + defaultKey +
                     "], \"KeyMode_Symbol\": [{\"text\": \"good\"}" + symbolKey + "]}}");
        m_parser.reset(new LanguageParser);
        takeTrace();
        EXPECT_THROW(m_parser->onLayoutchanged(m_english), Json::Exception);
        expectTrace(layoutChosen("English") + keyMapRead());
        EXPECT_THAT(keys(kChoices[0]), SizeIs(1));
        EXPECT_THAT(keys(kChoices[1]), SizeIs(1));
    }
};

TEST_P(ImpossibleKey, LetsTheLibrarysErrorThroughAndLeavesTheKeysBeforeIt)
{
    const std::string bad = std::string(", ") + GetParam().text;
    expectErrorWith(bad, "");
    EXPECT_THROW(keys(kChoices[2]), Json::Exception) << "not read yet, so it is tried again";
    expectErrorWith("", bad);
    EXPECT_THAT(keys(kChoices[2]), SizeIs(1));
    EXPECT_THAT(keys(kChoices[3]), SizeIs(1));
}

INSTANTIATE_TEST_SUITE_P(BadInput, ImpossibleKey, testing::ValuesIn(kImpossibleKeys), RowName());

} // namespace
