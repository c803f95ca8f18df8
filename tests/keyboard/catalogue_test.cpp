// The layout catalogue: names, key grid, the keyboard's size, and what a bad file leaves behind.

#include <cstdlib>
#include <string>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <json/json.h>

#include "Language_Parser.h"
#include "layout_folder.h"
#include "layout_sample.h"
#include "log_capture.h"
#include "steps.h"
#include "trace.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using sample::BadFile;
using steps::expectTrace;
using steps::Steps;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

static_assert(!std::is_polymorphic_v<LanguageParser>);

Steps logged(const std::string& function, const std::string& message)
{
    return steps::logged("Language_Parser.cpp", steps::kTrace, function, message);
}

Steps catalogueRead()
{
    return logged("ParseLayout", "called\n") +
           logged("ParseLayout", "Layout Parse Successfully !\n");
}

Steps catalogueNotRead()
{
    return logged("ParseLayout", "called\n");
}

Steps keyMapRead()
{
    return logged("ParseCurrentLayoutKeyMaps", "called\n") +
           logged("ParseCurrentLayoutKeyMaps", "Current LayoutKeyMap Parse Successfully !\n");
}

Steps keyMapNotRead()
{
    return logged("ParseCurrentLayoutKeyMaps", "called\n");
}

std::vector<int> asNumbers(const Rect_t& rect)
{
    return {rect.positionX, rect.positionY, rect.width, rect.height};
}

// The keys of a layout are the only place where the key grid shows.
class CatalogueTest : public testing::Test
{
protected:
    CatalogueTest() { takeTrace(); }

    void writeKeys(size_t count)
    {
        std::vector<Key> keys(count);
        m_folder.writeKeyMap("English", asJson(keys, {}));
    }

    std::vector<Rect_t> rectsOfKeys(LanguageParser& parser)
    {
        std::string name = "English";
        parser.onLayoutchanged(name);
        std::vector<Rect_t> rects;
        for (const Button_t& button : parser.getKeyMap(name, false, false))
            rects.push_back(button.rect);
        return rects;
    }

    LayoutFolder m_folder;
    LogCapture m_log;
};

TEST_F(CatalogueTest, TheExampleGivesItsNameAndSize)
{
    m_folder.writeCatalogue(asJson(sample::twoKeyCatalogue()));
    LanguageParser parser;
    EXPECT_THAT(parser.getLayoutsName(), ElementsAre("English"));
    EXPECT_EQ(parser.keyboardWidth(), 196);
    EXPECT_EQ(parser.keyboardHeight(), 58);
}

TEST_F(CatalogueTest, ConstructionReadsTheCatalogueThenTheUnnamedKeyMap)
{
    m_folder.writeCatalogue(asJson(sample::twoKeyCatalogue()));
    LanguageParser parser;
    expectTrace(catalogueRead() + keyMapNotRead());
}

TEST_F(CatalogueTest, NamesComeBackInTheOrderOfTheFile)
{
    Catalogue catalogue = sample::twoKeyCatalogue();
    catalogue.names = {"Zulu", "English", "Arabic", "English"};
    m_folder.writeCatalogue(asJson(catalogue));
    LanguageParser parser;
    EXPECT_THAT(parser.getLayoutsName(), ElementsAre("Zulu", "English", "Arabic", "English"));
}

TEST_F(CatalogueTest, NamesOnceReadAreNotReadAgain)
{
    m_folder.writeCatalogue(asJson(sample::twoKeyCatalogue()));
    LanguageParser parser;
    takeTrace();
    parser.getLayoutsName();
    expectTrace(logged("getLayoutsName", "called\n"));
}

TEST_F(CatalogueTest, ReadingAgainReplacesTheNames)
{
    m_folder.writeCatalogue(asJson(sample::twoKeyCatalogue()));
    LanguageParser parser;
    Catalogue changed = sample::twoKeyCatalogue();
    changed.names = {"German", "Greek"};
    m_folder.writeCatalogue(asJson(changed));
    EXPECT_TRUE(parser.ParseLayout());
    EXPECT_THAT(parser.getLayoutsName(), ElementsAre("German", "Greek"));
}

TEST_F(CatalogueTest, WithoutACatalogueEveryCallTriesAgainAndGivesNothing)
{
    LanguageParser parser;
    expectTrace(catalogueNotRead() + keyMapNotRead() + catalogueNotRead());
    for (int i = 0; i < 3; ++i) {
        EXPECT_THAT(parser.getLayoutsName(), IsEmpty());
        expectTrace(logged("getLayoutsName", "called\n") + catalogueNotRead());
    }
    EXPECT_FALSE(parser.ParseLayout());
    EXPECT_EQ(parser.keyboardWidth(), 0);
    EXPECT_EQ(parser.keyboardHeight(), 0);
}

TEST_F(CatalogueTest, ACatalogueThatAppearsLaterIsReadByTheNextCall)
{
    LanguageParser parser;
    m_folder.writeCatalogue(asJson(sample::twoKeyCatalogue()));
    takeTrace();
    EXPECT_THAT(parser.getLayoutsName(), ElementsAre("English"));
    expectTrace(logged("getLayoutsName", "called\n") + catalogueRead());
}

TEST_F(CatalogueTest, WithAnEmptyNameListEachCallReadsAgainAndTheFirstPositionsStay)
{
    Catalogue catalogue = sample::twoKeyCatalogue();
    catalogue.names.clear();
    m_folder.writeCatalogue(asJson(catalogue));
    writeKeys(3);
    LanguageParser parser;
    takeTrace();

    catalogue.rects = {{7, 7, 7, 7}};
    m_folder.writeCatalogue(asJson(catalogue));
    EXPECT_THAT(parser.getLayoutsName(), IsEmpty());
    expectTrace(logged("getLayoutsName", "called\n") + catalogueRead());

    // Two positions of the first reading, and behind them the one of the second.
    const std::vector<Rect_t> rects = rectsOfKeys(parser);
    ASSERT_THAT(rects, SizeIs(3));
    EXPECT_THAT(asNumbers(rects[0]), ElementsAre(4, 4, 60, 50));
    EXPECT_THAT(asNumbers(rects[1]), ElementsAre(68, 4, 124, 50));
    EXPECT_THAT(asNumbers(rects[2]), ElementsAre(452, 382, 444, 374));
}

TEST_F(CatalogueTest, APositionBeyond16BitsKeepsItsLowBitsInTheTableOnly)
{
    // A pitch of one pixel without a gap shows the table's numbers as they are.
    m_folder.writeCatalogue(
        asJson(Catalogue{{"English"}, 0, 0, 1, 1, {{70000, 65537, 65538, -65533}}}));
    writeKeys(1);
    LanguageParser parser;
    const std::vector<Rect_t> rects = rectsOfKeys(parser);
    ASSERT_THAT(rects, SizeIs(1));
    EXPECT_THAT(asNumbers(rects[0]), ElementsAre(4464, 1, 2, 3));
    EXPECT_EQ(parser.keyboardWidth(), 70000 + 65538);
    EXPECT_EQ(parser.keyboardHeight(), 65537 - 65533);
}

TEST_F(CatalogueTest, TheLastPositionAloneGivesTheSize)
{
    Catalogue catalogue = sample::twoKeyCatalogue();
    catalogue.rects = {{9, 9, 9, 9}, {2, 3, 4, 5}};
    m_folder.writeCatalogue(asJson(catalogue));
    LanguageParser parser;
    EXPECT_EQ(parser.keyboardWidth(), (2 + 4) * 64 + 4);
    EXPECT_EQ(parser.keyboardHeight(), (3 + 5) * 54 + 4);
}

TEST_F(CatalogueTest, GapAndCellOfEachDirectionAreItsOwn)
{
    m_folder.writeCatalogue(asJson(Catalogue{{"English"}, 3, 5, 70, 90, {{1, 2, 3, 4}}}));
    writeKeys(1);
    LanguageParser parser;
    const std::vector<Rect_t> rects = rectsOfKeys(parser);
    ASSERT_THAT(rects, SizeIs(1));
    EXPECT_THAT(asNumbers(rects[0]), ElementsAre(3 + 73, 5 + 2 * 95, 3 * 73 - 3, 4 * 95 - 5));
    EXPECT_EQ(parser.keyboardWidth(), 4 * 73 + 3);
    EXPECT_EQ(parser.keyboardHeight(), 6 * 95 + 5);
}

TEST_F(CatalogueTest, CommentsAndUnknownMembersAreAllowed)
{
    m_folder.writeCatalogue("// installed layouts\n{ \"language\": [\"English\"], /* grid */"
                            " \"author\": {\"a\": 1}, \"Rect\": {\"widthValue\": 60},"
                            " \"RectValue\": [{\"width\": 2, \"colour\": \"red\"}] }\n// end\n");
    LanguageParser parser;
    EXPECT_THAT(parser.getLayoutsName(), ElementsAre("English"));
    EXPECT_EQ(parser.keyboardWidth(), 120);
    EXPECT_EQ(parser.keyboardHeight(), 0);
}

TEST_F(CatalogueTest, AMissingNameListCountsAsEmpty)
{
    m_folder.writeCatalogue("{\"RectValue\": [{\"width\": 1}]}");
    LanguageParser parser;
    EXPECT_THAT(parser.getLayoutsName(), IsEmpty());
}

TEST_F(CatalogueTest, NamesOfOtherTypesAreReadAsStrings)
{
    m_folder.writeCatalogue("{\"language\": [1, true, null, \"x\"],"
                            " \"RectValue\": [{\"width\": 1}]}");
    LanguageParser parser;
    EXPECT_THAT(parser.getLayoutsName(), ElementsAre("1", "true", "", "x"));
}

TEST_F(CatalogueTest, AChangeToAnUnknownLayoutLogsItsNameAndLeavesNoKeys)
{
    m_folder.writeCatalogue(asJson(sample::twoKeyCatalogue()));
    m_folder.writeKeyMap("English", asJson(sample::twoDefaultKeys(), sample::twoSymbolKeys()));
    LanguageParser parser;
    std::string name = "English";
    parser.onLayoutchanged(name);
    takeTrace();

    name = "Klingon";
    parser.onLayoutchanged(name);
    expectTrace(logged("onLayoutchanged", "Current Layout is :Klingon \n") + keyMapNotRead());
    for (const bool shift : {false, true})
        for (const bool alt : {false, true})
            EXPECT_THAT(parser.getKeyMap(name, shift, alt), IsEmpty());
}

TEST_F(CatalogueTest, AChangeOfLayoutReadsItsKeys)
{
    m_folder.writeCatalogue(asJson(sample::twoKeyCatalogue()));
    m_folder.writeKeyMap("English", asJson(sample::twoDefaultKeys(), sample::twoSymbolKeys()));
    LanguageParser parser;
    takeTrace();
    std::string name = "English";
    parser.onLayoutchanged(name);
    EXPECT_EQ(name, "English");
    expectTrace(logged("onLayoutchanged", "Current Layout is :English \n") + keyMapRead());
}

// A catalogue that is no JSON document, whatever the reason.
const BadFile kNoJson[] = {
    {"Empty", ""},
    {"OnlyBlanks", " \n"},
    {"Text", "hello"},
    {"CutOff", "{\"language\": [\"English\""},
    {"MissingComma", "{\"language\": [\"English\"] \"Rect\": {}}"},
    {"BinaryZeros", "\x01\x02"},
};

class MalformedCatalogue : public CatalogueTest, public testing::WithParamInterface<BadFile>
{
};

TEST_P(MalformedCatalogue, GivesNoNamesAndLogsNoSuccess)
{
    m_folder.writeCatalogue(GetParam().text);
    LanguageParser parser;
    expectTrace(catalogueNotRead() + keyMapNotRead() + catalogueNotRead());
    EXPECT_FALSE(parser.ParseLayout());
    EXPECT_THAT(parser.getLayoutsName(), IsEmpty());
    EXPECT_EQ(parser.keyboardWidth(), 0);
}

TEST_P(MalformedCatalogue, AfterAGoodOneEmptiesTheNamesAndKeepsTheGridAndTheSize)
{
    m_folder.writeCatalogue(asJson(sample::twoKeyCatalogue()));
    writeKeys(2);
    LanguageParser parser;
    m_folder.writeCatalogue(GetParam().text);
    takeTrace();

    EXPECT_FALSE(parser.ParseLayout());
    expectTrace(catalogueNotRead());
    EXPECT_THAT(parser.getLayoutsName(), IsEmpty());
    EXPECT_EQ(parser.keyboardWidth(), 196);
    EXPECT_EQ(parser.keyboardHeight(), 58);
    const std::vector<Rect_t> rects = rectsOfKeys(parser);
    ASSERT_THAT(rects, SizeIs(2));
    EXPECT_THAT(asNumbers(rects[1]), ElementsAre(68, 4, 124, 50));
}

INSTANTIATE_TEST_SUITE_P(BadInput, MalformedCatalogue, testing::ValuesIn(kNoJson),
                         [](const auto& test) { return std::string(test.param.what); });

TEST_F(CatalogueTest, AnUnreadableCatalogueIsAsGoodAsNone)
{
    m_folder.writeCatalogue(asJson(sample::twoKeyCatalogue()));
    ::setenv("VKB_TEST_FAIL_OPEN", LayoutFolder::cataloguePath().c_str(), 1);
    LanguageParser parser;
    ::unsetenv("VKB_TEST_FAIL_OPEN");
    expectTrace(catalogueNotRead() + keyMapNotRead() + catalogueNotRead());
}

// A catalogue that is JSON but holds what the JSON library cannot convert or index.
const BadFile kImpossible[] = {
    {"NoPositions", "{\"language\": [\"English\"]}"},
    {"EmptyPositions", "{\"language\": [\"English\"], \"RectValue\": []}"},
    {"ArrayAtTheTop", "[1]"},
    {"NumberAtTheTop", "5"},
    {"NameIsAnObject", "{\"language\": [{}], \"RectValue\": [{}]}"},
    {"GapIsAWord", "{\"Rect\": {\"positionXValue\": \"x\"}, \"RectValue\": [{}]}"},
    {"GapBeyond32Bits", "{\"Rect\": {\"positionYValue\": 3000000000}, \"RectValue\": [{}]}"},
    {"CellIsAList", "{\"Rect\": {\"widthValue\": [1]}, \"RectValue\": [{}]}"},
    {"GridIsANumber", "{\"Rect\": 5, \"RectValue\": [{}]}"},
    {"PositionIsAWord", "{\"RectValue\": [{\"positionX\": \"1\"}]}"},
    {"WidthIsAnObject", "{\"RectValue\": [{\"width\": {}}]}"},
};

class ImpossibleCatalogue : public CatalogueTest, public testing::WithParamInterface<BadFile>
{
};

TEST_P(ImpossibleCatalogue, LetsTheLibrarysErrorThroughAfterTheSuccessLine)
{
    m_folder.writeCatalogue(GetParam().text);
    EXPECT_THROW(LanguageParser(), Json::Exception);
    expectTrace(catalogueRead());
}

TEST_P(ImpossibleCatalogue, ReachesEveryCallerOfTheReading)
{
    LanguageParser parser;
    m_folder.writeCatalogue(GetParam().text);
    std::string name = "English";
    takeTrace();
    EXPECT_THROW(parser.getLayoutsName(), Json::Exception);
    expectTrace(logged("getLayoutsName", "called\n") + catalogueRead());
    EXPECT_THROW(parser.onLayoutchanged(name), Json::Exception);
    expectTrace(logged("onLayoutchanged", "Current Layout is :English \n") +
                logged("ParseCurrentLayoutKeyMaps", "called\n") + catalogueRead());
}

INSTANTIATE_TEST_SUITE_P(BadInput, ImpossibleCatalogue, testing::ValuesIn(kImpossible),
                         [](const auto& test) { return std::string(test.param.what); });

TEST_F(CatalogueTest, WithoutPositionsTheNamesReadBeforeTheErrorStay)
{
    LanguageParser parser;
    m_folder.writeCatalogue("{\"language\": [\"English\", \"German\"],"
                            " \"Rect\": {\"widthValue\": 60}}");
    EXPECT_THROW(parser.getLayoutsName(), Json::Exception);
    takeTrace();
    EXPECT_THAT(parser.getLayoutsName(), ElementsAre("English", "German"));
    expectTrace(logged("getLayoutsName", "called\n"));
    EXPECT_EQ(parser.keyboardWidth(), 0);
}

TEST_F(CatalogueTest, AnEmptyPositionTableThrowsOutOfTheKeyMapReadingToo)
{
    LanguageParser parser;
    m_folder.writeCatalogue("{\"RectValue\": []}");
    writeKeys(1);
    std::string name = "English";
    takeTrace();
    EXPECT_THROW(parser.onLayoutchanged(name), Json::Exception);
    expectTrace(logged("onLayoutchanged", "Current Layout is :English \n") + keyMapNotRead() +
                catalogueRead());
    EXPECT_THROW(parser.getKeyMap(name, false, false), Json::Exception);
}

} // namespace
