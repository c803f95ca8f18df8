// The key maps: four key sets from one file, their pixels, and what a bad file leaves behind.

#include <cstdlib>
#include <memory>
#include <ostream>
#include <string>
#include <tuple>
#include <vector>

#include <gmock/gmock.h>
#include <json/json.h>

#include "Language_Parser.h"
#include "keyboard_ui.h"
#include "layout_folder.h"
#include "layout_sample.h"
#include "log_capture.h"
#include "recording_display.h"
#include "steps.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using sample::BadFile;
using steps::expectTrace;
using steps::Keys;
using steps::Steps;
using testing::Contains;
using testing::IsEmpty;
using testing::SizeIs;

Steps logged(const std::string& function, const std::string& message)
{
    return steps::logged("Language_Parser.cpp", steps::kTrace, function, message);
}

Steps keyMapNotRead()
{
    return logged("ParseCurrentLayoutKeyMaps", "called\n");
}

Steps keyMapRead()
{
    return keyMapNotRead() +
           logged("ParseCurrentLayoutKeyMaps", "Current LayoutKeyMap Parse Successfully !\n");
}

auto fields(const Button_t& button)
{
    return std::make_tuple(button.text, button.rect.positionX, button.rect.positionY,
                           button.rect.width, button.rect.height, button.id, button.isSpecial,
                           button.isLanguage, button.keyCode, button.character, button.left_button,
                           button.right_button, button.up_button, button.down_button);
}

void expectKeys(const Keys& found, const Keys& expected)
{
    ASSERT_EQ(found.size(), expected.size());
    for (size_t i = 0; i < found.size(); ++i)
        EXPECT_EQ(fields(found[i]), fields(expected[i])) << "key " << i;
}

// One of the four key sets.
struct Choice {
    const char* what;
    bool shift, alt;
};

std::ostream& operator<<(std::ostream& stream, const Choice& choice)
{
    return stream << choice.what;
}

const Choice kChoices[] = {{"Default", false, false},
                           {"DefaultShift", true, false},
                           {"Symbol", false, true},
                           {"SymbolShift", true, true}};

class KeyMapTest : public testing::Test
{
protected:
    KeyMapTest() { m_folder.writeCatalogue(asJson(sample::twoKeyCatalogue())); }

    void writeEnglish(const std::string& json) { m_folder.writeKeyMap("English", json); }
    void writeEnglish() { writeEnglish(asJson(sample::twoDefaultKeys(), sample::twoSymbolKeys())); }

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

    void expectNoKeys()
    {
        for (const Choice& choice : kChoices)
            EXPECT_THAT(keys(choice), IsEmpty()) << choice.what;
    }

    LayoutFolder m_folder;
    LogCapture m_log;
    std::string m_english = "English";
    std::unique_ptr<LanguageParser> m_parser;
};

class KeySet : public KeyMapTest, public testing::WithParamInterface<Choice>
{
protected:
    static Keys expected()
    {
        return sample::buttons(sample::twoKeyCatalogue(),
                               GetParam().alt ? sample::twoSymbolKeys() : sample::twoDefaultKeys(),
                               GetParam().shift);
    }
};

TEST_P(KeySet, OfTheExampleHoldsItsKeys)
{
    writeEnglish();
    english();
    expectKeys(keys(GetParam()), expected());
    expectTrace(logged("getKeyMap", "called\n"));
}

TEST_P(KeySet, BelongsToTheCurrentLayoutWhateverTheNameSays)
{
    writeEnglish();
    LanguageParser& parser = english();
    for (std::string name : {"German", "", "English"}) {
        expectKeys(parser.getKeyMap(name, GetParam().shift, GetParam().alt), expected());
    }
}

TEST_P(KeySet, IsReadAgainWhileItIsEmpty)
{
    english(); // no file yet
    EXPECT_THAT(keys(GetParam()), IsEmpty());
    EXPECT_THAT(keys(GetParam()), IsEmpty());
    const Steps tried = logged("getKeyMap", "called\n") + keyMapNotRead();
    expectTrace(tried + tried);

    writeEnglish();
    expectKeys(keys(GetParam()), expected());
    expectTrace(logged("getKeyMap", "called\n") + keyMapRead());
}

INSTANTIATE_TEST_SUITE_P(Faces, KeySet, testing::ValuesIn(kChoices),
                         [](const auto& test) { return std::string(test.param.what); });

// The example once more, in plain numbers.
TEST_F(KeyMapTest, TheExamplesRectanglesLabelsAndCodes)
{
    writeEnglish();
    english();
    expectKeys(keys(kChoices[0]), {{"a", {4, 4, 60, 50}, 0, false, false, 65, 97, 1, 1, 0, 0},
                                   {"Shift", {68, 4, 124, 50}, 1, true, false, 0, 0, 0, 0, 1, 1}});
    expectKeys(keys(kChoices[1]), {{"A", {4, 4, 60, 50}, 0, false, false, 65, 65, 1, 1, 0, 0},
                                   {"", {68, 4, 124, 50}, 1, true, false, 0, 0, 0, 0, 1, 1}});
    expectKeys(keys(kChoices[2]), {{"1", {4, 4, 60, 50}, 0, false, false, 49, 49, 1, 1, 0, 0},
                                   {"", {68, 4, 124, 50}, 1, false, false, 0, 0, 0, 0, 1, 1}});
    expectKeys(keys(kChoices[3]), {{"!", {4, 4, 60, 50}, 0, false, false, 49, 33, 1, 1, 0, 0},
                                   {"", {68, 4, 124, 50}, 1, false, false, 0, 0, 0, 0, 1, 1}});
    EXPECT_EQ(m_parser->keyboardWidth(), 68 + 124 + 4);
}

TEST_F(KeyMapTest, OnlyTheExactWordNullMakesAnEmptyLabel)
{
    const std::vector<std::string> kept = {"null", " NULL", "NULL ", "Null", "NULLS", "nULL"};
    Catalogue catalogue = sample::twoKeyCatalogue();
    catalogue.rects.assign(kept.size() + 1, {0, 0, 1, 1});
    m_folder.writeCatalogue(asJson(catalogue));
    std::vector<Key> keys(kept.size() + 1);
    keys[0].text = keys[0].shiftText = "NULL";
    for (size_t i = 0; i < kept.size(); ++i)
        keys[i + 1].text = keys[i + 1].shiftText = kept[i];
    writeEnglish(asJson(keys, keys));
    english();

    for (const Choice& choice : kChoices) {
        SCOPED_TRACE(choice.what);
        const Keys& found = this->keys(choice);
        ASSERT_THAT(found, SizeIs(kept.size() + 1));
        EXPECT_EQ(found[0].text, "");
        for (size_t i = 0; i < kept.size(); ++i)
            EXPECT_EQ(found[i + 1].text, kept[i]);
    }
}

TEST_F(KeyMapTest, LabelsAreKeptAsBytes)
{
    std::vector<Key> keys(2);
    keys[0].text = "\xE4\xBD\xA0\xE5\xA5\xBD";
    keys[0].shiftText = "%s a label too long for the room inside a string";
    writeEnglish(asJson(keys, {}));
    english();
    EXPECT_EQ(defaultKeys()[0].text, keys[0].text);
    EXPECT_EQ(this->keys(kChoices[1])[0].text, keys[0].shiftText);
}

TEST_F(KeyMapTest, AMissingSymbolSetIsEmptyAndReadAgainOnEachCall)
{
    writeEnglish("{\"Keys\": {\"KeyMode_Default\": [{\"text\": \"a\"}, {\"text\": \"b\"}]}}");
    english();
    EXPECT_TRUE(m_parser->ParseCurrentLayoutKeyMaps());
    takeTrace();
    for (int i = 0; i < 2; ++i) {
        EXPECT_THAT(keys(kChoices[2]), IsEmpty());
        expectTrace(logged("getKeyMap", "called\n") + keyMapRead());
        EXPECT_THAT(keys(kChoices[3]), IsEmpty());
        expectTrace(logged("getKeyMap", "called\n") + keyMapRead());
    }
    EXPECT_THAT(keys(kChoices[0]), SizeIs(2));
    EXPECT_THAT(keys(kChoices[1]), SizeIs(2));
    expectTrace(logged("getKeyMap", "called\n") + logged("getKeyMap", "called\n"));
}

TEST_F(KeyMapTest, TheTwoSetsMayDifferInLength)
{
    writeEnglish(asJson(sample::twoDefaultKeys(), {sample::twoSymbolKeys()[0]}));
    english();
    EXPECT_THAT(keys(kChoices[0]), SizeIs(2));
    EXPECT_THAT(keys(kChoices[1]), SizeIs(2));
    EXPECT_THAT(keys(kChoices[2]), SizeIs(1));
    EXPECT_THAT(keys(kChoices[3]), SizeIs(1));
}

TEST_F(KeyMapTest, IdsAreTakenFromEachArrayAsTheyStand)
{
    std::vector<Key> symbols = sample::twoSymbolKeys();
    symbols[0].id = 41;
    symbols[1].id = -7;
    writeEnglish(asJson(sample::twoDefaultKeys(), symbols));
    english();
    EXPECT_EQ(keys(kChoices[2])[0].id, 41);
    EXPECT_EQ(keys(kChoices[3])[1].id, -7);
    EXPECT_EQ(keys(kChoices[2])[1].rect.positionX, 68)
        << "the place in the list gives the rectangle";
}

TEST_F(KeyMapTest, BeforeAnyLayoutTheSetsAreEmpty)
{
    writeEnglish();
    m_parser.reset(new LanguageParser);
    expectNoKeys();
}

TEST_F(KeyMapTest, AnUnnamedKeyMapIsReadAtConstruction)
{
    m_folder.writeKeyMap("", asJson(sample::twoDefaultKeys(), sample::twoSymbolKeys()));
    m_parser.reset(new LanguageParser);
    takeTrace();
    EXPECT_THAT(defaultKeys(), SizeIs(2));
    expectTrace(logged("getKeyMap", "called\n"));
}

TEST_F(KeyMapTest, AnEmptyNameLeadsToTheUnnamedKeyMap)
{
    writeEnglish();
    english();
    std::string none;
    m_parser->onLayoutchanged(none);
    expectTrace(logged("onLayoutchanged", "Current Layout is : \n") + keyMapNotRead());
    expectNoKeys();
}

TEST_F(KeyMapTest, TheNameIsUsedAsItStands)
{
    writeEnglish();
    english();
    std::string lowerCase = "english";
    m_parser->onLayoutchanged(lowerCase);
    expectNoKeys();

    std::string odd = "Odd name%s";
    m_folder.writeKeyMap(odd, asJson(sample::twoDefaultKeys(), sample::twoSymbolKeys()));
    m_parser->onLayoutchanged(odd);
    EXPECT_THAT(defaultKeys(), SizeIs(2));
}

TEST_F(KeyMapTest, AChangeOfLayoutReplacesAllFourSets)
{
    writeEnglish();
    m_folder.writeKeyMap("German", asJson({sample::twoDefaultKeys()[0]}, {}));
    english();
    std::string german = "German";
    m_parser->onLayoutchanged(german);
    EXPECT_THAT(keys(kChoices[0]), SizeIs(1));
    EXPECT_THAT(keys(kChoices[1]), SizeIs(1));
    EXPECT_THAT(keys(kChoices[2]), IsEmpty());
    EXPECT_THAT(keys(kChoices[3]), IsEmpty());
}

TEST_F(KeyMapTest, ReadingTheSameFileAgainDoesNotDoubleTheKeys)
{
    writeEnglish();
    english();
    EXPECT_TRUE(m_parser->ParseCurrentLayoutKeyMaps());
    for (const Choice& choice : kChoices)
        EXPECT_THAT(keys(choice), SizeIs(2)) << choice.what;
}

TEST_F(KeyMapTest, ARectangleKeepsItsLow16Bits)
{
    m_folder.writeCatalogue(asJson(Catalogue{{"English"}, 4, 4, 60, 50, {{600, 1300, 1100, 700}}}));
    writeEnglish(asJson({sample::twoDefaultKeys()[0]}, {}));
    english();
    const Rect_t rect = defaultKeys()[0].rect;
    EXPECT_EQ(rect.positionX, -27132);        // 38404
    EXPECT_EQ(rect.positionY, 70204 - 65536); // 4 + 1300 * 54
    EXPECT_EQ(rect.width, 70396 - 65536);     // 1100 * 64 - 4
    EXPECT_EQ(rect.height, 37796 - 65536);    // 700 * 54 - 4
}

TEST_F(KeyMapTest, APitchBeyond16BitsCountsWithItsLowBits)
{
    m_folder.writeCatalogue(asJson(Catalogue{{"English"}, 4, 4, 65536 + 60, 50, {{1, 0, 1, 1}}}));
    writeEnglish(asJson({sample::twoDefaultKeys()[0]}, {}));
    english();
    EXPECT_EQ(defaultKeys()[0].rect.positionX, 68);
    EXPECT_EQ(defaultKeys()[0].rect.width, 60);
}

TEST_F(KeyMapTest, AWrappedRectangleReachesTheRendererAsANegativeOne)
{
    m_folder.writeCatalogue(asJson(Catalogue{{"English"}, 4, 4, 60, 50, {{600, 0, 1, 1}}}));
    writeEnglish(asJson({sample::twoDefaultKeys()[0]}, {}));
    english();

    const char font[] = "/opt/font/test.ttf";
    m_folder.writeFile(font, "");
    RecordingDisplay display;
    KeyBoardUI ui(display.dfb(), display.newSurface(800, 600));
    ASSERT_TRUE(ui.setLayoutData(&defaultKeys(), 30, font));
    ui.draw(true);
    EXPECT_THAT(takeTrace(), Contains("surface1.FillRectangle(-27132,4,61,51)"));
}

TEST_F(KeyMapTest, AMissingCatalogueIsTriedAtEachReading)
{
    m_folder.removeCatalogue();
    writeEnglish(asJson({sample::twoDefaultKeys()[0]}, {}));
    m_parser.reset(new LanguageParser);
    takeTrace();
    m_parser->onLayoutchanged(m_english);
    expectTrace(logged("onLayoutchanged", "Current Layout is :English \n") + keyMapNotRead() +
                logged("ParseLayout", "called\n") +
                logged("ParseCurrentLayoutKeyMaps", "Current LayoutKeyMap Parse Successfully !\n"));

    m_folder.writeCatalogue(asJson(sample::twoKeyCatalogue()));
    EXPECT_TRUE(m_parser->ParseCurrentLayoutKeyMaps());
    EXPECT_EQ(defaultKeys()[0].rect.width, 60);
    takeTrace();
    EXPECT_TRUE(m_parser->ParseCurrentLayoutKeyMaps());
    expectTrace(keyMapRead()); // the catalogue is known now
}

TEST_F(KeyMapTest, AKeyBeyondThePositionTableHasAnEmptyRectangle)
{
    std::vector<Key> keys = sample::twoDefaultKeys();
    keys.push_back(keys[0]);
    keys[2].text = "beyond";
    writeEnglish(asJson(keys, keys));
    english();
    for (const Choice& choice : kChoices) {
        const Keys& found = this->keys(choice);
        ASSERT_THAT(found, SizeIs(3)) << choice.what;
        const Rect_t rect = found[2].rect;
        EXPECT_EQ(std::make_tuple(rect.positionX, rect.positionY, rect.width, rect.height),
                  std::make_tuple(0, 0, 0, 0));
    }
    EXPECT_EQ(defaultKeys()[2].text, "beyond");
}

TEST_F(KeyMapTest, MissingMembersReadAsZeroFalseAndEmpty)
{
    writeEnglish("{\"Keys\": {\"KeyMode_Default\": [{}], \"KeyMode_Symbol\": [{}]}}");
    english();
    for (const Choice& choice : kChoices)
        expectKeys(keys(choice), {{"", {4, 4, 60, 50}, 0, false, false, 0, 0, 0, 0, 0, 0}});
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
    expectKeys(keys(kChoices[0]),
               {{"5", {4, 4, 60, 50}, 1, true, false, 8, 0, lowest, 2147483647, 0, 0}});
    expectKeys(keys(kChoices[1]),
               {{"false", {4, 4, 60, 50}, 1, true, false, 8, 7, lowest, 2147483647, 0, 0}});
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
        expectNoKeys();
    }
}

const BadFile kNoJson[] = {
    {"Empty", ""}, {"Text", "keys"}, {"CutOff", "{\"Keys\": {\"KeyMode_Default\": [{\"id\": 0"}};

class MalformedKeyMap : public KeyMapTest, public testing::WithParamInterface<BadFile>
{
};

TEST_P(MalformedKeyMap, EmptiesTheSetsAndIsTriedAgain)
{
    writeEnglish();
    english();
    ASSERT_THAT(defaultKeys(), SizeIs(2));
    writeEnglish(GetParam().text);
    takeTrace();

    m_parser->onLayoutchanged(m_english);
    expectTrace(logged("onLayoutchanged", "Current Layout is :English \n") + keyMapNotRead());
    EXPECT_FALSE(m_parser->ParseCurrentLayoutKeyMaps());
    expectNoKeys();
    writeEnglish();
    EXPECT_THAT(defaultKeys(), SizeIs(2));
}

INSTANTIATE_TEST_SUITE_P(BadInput, MalformedKeyMap, testing::ValuesIn(kNoJson),
                         [](const auto& test) { return std::string(test.param.what); });

TEST_F(KeyMapTest, AnUnreadableKeyMapIsAsGoodAsNone)
{
    writeEnglish();
    ::setenv("VKB_TEST_FAIL_OPEN", LayoutFolder::keyMapPath("English").c_str(), 1);
    english();
    expectNoKeys();
    ::unsetenv("VKB_TEST_FAIL_OPEN");
    EXPECT_THAT(defaultKeys(), SizeIs(2));
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

class ImpossibleKey : public KeyMapTest, public testing::WithParamInterface<BadFile>
{
protected:
    void writeBadKey(const char* array)
    {
        const std::string good = "\"KeyMode_Default\": [{\"text\": \"a\"}]";
        const std::string bad =
            std::string("\"") + array + "\": [{\"text\": \"good\"}, " + GetParam().text + "]";
        writeEnglish("{\"Keys\": {" + (array == std::string("KeyMode_Symbol") ? good + ", " : "") +
                     bad + "}}");
    }

    void expectTheErrorAfterTheSuccessLine()
    {
        m_parser.reset(new LanguageParser);
        takeTrace();
        EXPECT_THROW(m_parser->onLayoutchanged(m_english), Json::Exception);
        expectTrace(logged("onLayoutchanged", "Current Layout is :English \n") + keyMapRead());
    }
};

TEST_P(ImpossibleKey, InTheDefaultSetLeavesTheKeysBeforeIt)
{
    writeBadKey("KeyMode_Default");
    expectTheErrorAfterTheSuccessLine();
    EXPECT_THAT(keys(kChoices[0]), SizeIs(1));
    EXPECT_THAT(keys(kChoices[1]), SizeIs(1));
    EXPECT_THROW(keys(kChoices[2]), Json::Exception);
}

TEST_P(ImpossibleKey, InTheSymbolSetLeavesTheKeysBeforeIt)
{
    writeBadKey("KeyMode_Symbol");
    expectTheErrorAfterTheSuccessLine();
    for (const Choice& choice : kChoices)
        EXPECT_THAT(keys(choice), SizeIs(1)) << choice.what;
}

INSTANTIATE_TEST_SUITE_P(BadInput, ImpossibleKey, testing::ValuesIn(kImpossibleKeys),
                         [](const auto& test) { return std::string(test.param.what); });

} // namespace
