// The layout catalogue: names, key grid, the keyboard's size, and what a bad file leaves behind.

#include <sstream>
#include <string>
#include <type_traits>
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
using testing::ElementsAre;
using testing::IsEmpty;

static_assert(!std::is_polymorphic_v<LanguageParser>);

std::string gridJson(const Lines& names, const std::vector<GridRect>& rects)
{
    return asJson(Catalogue{names, 4, 4, 60, 50, rects});
}

// Two keys, the second two cells wide.
std::string example(const Lines& names = {"English"})
{
    return gridJson(names, {{0, 0, 1, 1}, {1, 0, 2, 1}});
}

class CatalogueTest : public testing::Test
{
protected:
    CatalogueTest()
    {
        m_folder.writeCatalogue(example());
        takeTrace();
    }

    // "X,Y,WIDTH,HEIGHT" of each key: a layout is the only place where the key grid shows.
    std::string rectsOfKeys(LanguageParser& parser, size_t count)
    {
        m_folder.writeKeyMap("English", asJson(std::vector<Key>(count), {}));
        parser.onLayoutchanged(m_english);
        std::ostringstream rects;
        for (const Button_t& key : parser.getKeyMap(m_english, false, false))
            rects << (rects.tellp() > 0 ? " " : "") << key.rect.positionX << ","
                  << key.rect.positionY << "," << key.rect.width << "," << key.rect.height;
        return rects.str();
    }

    LayoutFolder m_folder;
    LogCapture m_log;
    std::string m_english = "English";
};

// A good file, and what is read from it: names, the keyboard's size, the keys' rectangles.
struct Good : Row {
    std::string text;
    Lines names;
    int width, height;
    size_t keys;
    const char* rects;
};

const GridRect kFirst = {0, 0, 1, 1};
const Lines kEnglish = {"English"};
const Lines kOthers = {"Zulu", "English", "Arabic", "English"};
const Lines kOddNames = {"1", "true", "", "x"};
const Lines kNoNames;

const Good kGood[] = {
    {"TheExample", example(), kEnglish, 196, 58, 2, "4,4,60,50 68,4,124,50"},
    {"NamesInTheOrderOfTheFile", gridJson(kOthers, {kFirst}), kOthers, 68, 58, 1, "4,4,60,50"},
    {"GapAndCellOfEachDirectionAreItsOwn",
     asJson(Catalogue{kEnglish, 3, 5, 70, 90, {{1, 2, 3, 4}}}), kEnglish, 4 * 73 + 3, 6 * 95 + 5, 1,
     "76,195,216,375"},
    {"TheLastPositionAloneGivesTheSize", gridJson(kEnglish, {{9, 9, 9, 9}, {2, 3, 4, 5}}), kEnglish,
     (2 + 4) * 64 + 4, (3 + 5) * 54 + 4, 2, "580,490,572,482 132,166,252,266"},
    {"ARectangleKeepsItsLow16Bits", gridJson(kEnglish, {{600, 1300, 1100, 700}}), kEnglish,
     (600 + 1100) * 64 + 4, (1300 + 700) * 54 + 4, 1, "-27132,4668,4860,-27740"},
    {"APitchBeyond16BitsCountsWithItsLowBits",
     asJson(Catalogue{kEnglish, 4, 4, 65536 + 60, 50, {{1, 0, 1, 1}}}), kEnglish,
     2 * (65536 + 64) + 4, 58, 1, "68,4,60,50"},
    // A pitch of one pixel without a gap shows the table's numbers as they are.
    {"APositionBeyond16BitsKeepsItsLowBitsInTheTableOnly",
     asJson(Catalogue{kEnglish, 0, 0, 1, 1, {{70000, 65537, 65538, -65533}}}), kEnglish,
     70000 + 65538, 65537 - 65533, 1, "4464,1,2,3"},
    {"CommentsAndUnknownMembersAreAllowed",
     "// installed layouts\n{ \"language\": [\"English\"], /* grid */ \"author\": {\"a\": 1},"
     " \"Rect\": {\"widthValue\": 60}, \"RectValue\": [{\"width\": 2, \"colour\": \"red\"}] }\n"
     "// end\n",
     kEnglish, 120, 0, 1, "0,0,120,0"},
    {"AMissingNameListCountsAsEmpty", "{\"RectValue\": [{\"width\": 1}]}", kNoNames, 0, 0, 1,
     "0,0,0,0"},
    {"NamesOfOtherTypesAreReadAsStrings",
     "{\"language\": [1, true, null, \"x\"], \"RectValue\": [{\"width\": 1}]}", kOddNames, 0, 0, 1,
     "0,0,0,0"},
};

using GoodCatalogue = WithRows<CatalogueTest, Good>;

TEST_P(GoodCatalogue, GivesItsNamesSizeAndGrid)
{
    m_folder.writeCatalogue(GetParam().text);
    LanguageParser parser;
    expectTrace(catalogueRead() + keyMapNotRead());
    EXPECT_EQ(parser.getLayoutsName(), GetParam().names);
    EXPECT_EQ(parser.keyboardWidth(), GetParam().width);
    EXPECT_EQ(parser.keyboardHeight(), GetParam().height);
    EXPECT_EQ(rectsOfKeys(parser, GetParam().keys), GetParam().rects);
}

INSTANTIATE_TEST_SUITE_P(Files, GoodCatalogue, testing::ValuesIn(kGood), RowName());

TEST_F(CatalogueTest, NamesOnceReadAreReplacedByAnotherReadingOnly)
{
    LanguageParser parser;
    m_folder.writeCatalogue(gridJson({"German", "Greek"}, {kFirst}));
    takeTrace();
    EXPECT_THAT(parser.getLayoutsName(), ElementsAre("English"));
    expectTrace(steps::parser("getLayoutsName", "called\n"));
    EXPECT_TRUE(parser.ParseLayout());
    EXPECT_THAT(parser.getLayoutsName(), ElementsAre("German", "Greek"));
}

TEST_F(CatalogueTest, WithoutACatalogueEveryCallTriesAgainUntilThereIsOne)
{
    m_folder.removeCatalogue();
    LanguageParser parser;
    expectTrace(catalogueNotRead() + keyMapNotRead() + catalogueNotRead());
    for (int i = 0; i < 3; ++i) {
        EXPECT_THAT(parser.getLayoutsName(), IsEmpty());
        expectTrace(steps::parser("getLayoutsName", "called\n") + catalogueNotRead());
    }
    EXPECT_FALSE(parser.ParseLayout());
    EXPECT_EQ(parser.keyboardWidth(), 0);
    EXPECT_EQ(parser.keyboardHeight(), 0);

    m_folder.writeCatalogue(example());
    takeTrace();
    EXPECT_THAT(parser.getLayoutsName(), ElementsAre("English"));
    expectTrace(steps::parser("getLayoutsName", "called\n") + catalogueRead());
}

TEST_F(CatalogueTest, WithAnEmptyNameListEachCallReadsAgainAndTheFirstPositionsStay)
{
    m_folder.writeCatalogue(example({}));
    LanguageParser parser;
    takeTrace();

    m_folder.writeCatalogue(gridJson({}, {{7, 7, 7, 7}}));
    EXPECT_THAT(parser.getLayoutsName(), IsEmpty());
    expectTrace(steps::parser("getLayoutsName", "called\n") + catalogueRead());
    // Two positions of the first reading, and behind them the one of the second.
    EXPECT_EQ(rectsOfKeys(parser, 3), "4,4,60,50 68,4,124,50 452,382,444,374");
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

using MalformedCatalogue = WithRows<CatalogueTest, BadFile>;

TEST_P(MalformedCatalogue, LogsNoSuccessEmptiesTheNamesAndKeepsTheGridAndTheSize)
{
    LanguageParser parser;
    m_folder.writeCatalogue(GetParam().text);
    takeTrace();
    const LanguageParser another;
    expectTrace(catalogueNotRead() + keyMapNotRead() + catalogueNotRead());
    EXPECT_FALSE(parser.ParseLayout());
    expectTrace(catalogueNotRead());
    EXPECT_THAT(parser.getLayoutsName(), IsEmpty());
    EXPECT_EQ(parser.keyboardWidth(), 196);
    EXPECT_EQ(parser.keyboardHeight(), 58);
    EXPECT_EQ(rectsOfKeys(parser, 2), "4,4,60,50 68,4,124,50");
}

INSTANTIATE_TEST_SUITE_P(BadInput, MalformedCatalogue, testing::ValuesIn(kNoJson), RowName());

TEST_F(CatalogueTest, AnUnreadableCatalogueIsAsGoodAsNone)
{
    m_folder.makeUnreadable(LayoutFolder::cataloguePath());
    LanguageParser parser;
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

using ImpossibleCatalogue = WithRows<CatalogueTest, BadFile>;

TEST_P(ImpossibleCatalogue, LetsTheLibrarysErrorThroughAfterTheSuccessLineToEveryCaller)
{
    m_folder.removeCatalogue();
    LanguageParser parser;
    m_folder.writeCatalogue(GetParam().text);
    takeTrace();
    EXPECT_THROW(LanguageParser(), Json::Exception);
    expectTrace(catalogueRead());
    EXPECT_THROW(parser.getLayoutsName(), Json::Exception);
    expectTrace(steps::parser("getLayoutsName", "called\n") + catalogueRead());
    EXPECT_THROW(parser.onLayoutchanged(m_english), Json::Exception);
    expectTrace(layoutChosen("English") + keyMapNotRead() + catalogueRead());
    EXPECT_EQ(parser.keyboardWidth(), 0);
}

INSTANTIATE_TEST_SUITE_P(BadInput, ImpossibleCatalogue, testing::ValuesIn(kImpossible), RowName());

TEST_F(CatalogueTest, WithoutPositionsTheNamesReadBeforeTheErrorStay)
{
    m_folder.removeCatalogue();
    LanguageParser parser;
    m_folder.writeCatalogue("{\"language\": [\"English\", \"German\"],"
                            " \"Rect\": {\"widthValue\": 60}}");
    EXPECT_THROW(parser.getLayoutsName(), Json::Exception);
    takeTrace();
    EXPECT_THAT(parser.getLayoutsName(), ElementsAre("English", "German"));
    expectTrace(steps::parser("getLayoutsName", "called\n"));
    EXPECT_EQ(parser.keyboardWidth(), 0);
}

} // namespace
