// What `layouts check` says of each set in bad_and_odd_sets.txt.
#include <algorithm>

#include <gmock/gmock.h>

#include "font_files.h"
#include "layout_sets.h"
#include "shipped.h"

using namespace layouts;
using testing::ElementsAreArray;

// Shown beside the test's name.
void PrintTo(const CheckedSet& set, std::ostream* stream)
{
    *stream << set.name;
}

namespace
{

const std::vector<CheckedSet>& sets()
{
    static const std::vector<CheckedSet> kAll = readCheckedSets();
    return kAll;
}

std::vector<std::string> findingsOf(const CheckedSet& set)
{
    FontCache fonts;
    CheckOptions options;
    options.screenWidth = set.screenWidth;
    options.screenHeight = set.screenHeight;
    if (!set.font.empty())
        options.font = [&](const std::string&) { return &fonts.open(set.font); };
    return lines(Checker(resource("schema")).check(set.files, options));
}

class LayoutSets : public testing::TestWithParam<CheckedSet>
{
};

TEST_P(LayoutSets, GivesItsFindingsAndNoOther)
{
    EXPECT_THAT(findingsOf(GetParam()), ElementsAreArray(GetParam().findings));
}

INSTANTIATE_TEST_SUITE_P(Table, LayoutSets, testing::ValuesIn(sets()),
                         [](const testing::TestParamInfo<CheckedSet>& set) {
                             std::string name = set.param.name;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

TEST(LayoutSetsTable, GoodSetIsRight)
{
    CheckedSet good;
    good.files = readLayoutSet(LAYOUT_SETS "/good");
    EXPECT_EQ(good.files.size(), 2u);
    EXPECT_THAT(findingsOf(good), testing::IsEmpty());
}

// Too long a line for the table.
TEST(LayoutSetsTable, NestingThatIsTooDeepIsNoJson)
{
    CheckedSet set;
    set.files = readLayoutSet(LAYOUT_SETS "/good");
    set.files[keyMapName("English")] = std::string(4000, '[') + "\n";
    EXPECT_THAT(findingsOf(set),
                testing::ElementsAre("Language_English.json: the whole file: found Exceeded "
                                     "stackLimit in readValue()., expected JSON [syntax]"));
}

TEST(LayoutSetsTable, CoversEveryRule)
{
    const std::vector<std::string> rules = {
        "back",    "character", "count",   "duplicate", "file",    "glyph",  "id",        "label",
        "last",    "leave",     "lengths", "missing",   "name",    "needed", "neighbour", "nfc",
        "nothing", "orphan",    "overlap", "pixels",    "range",   "reach",  "screen",    "size",
        "special", "syntax",    "twice",   "type",      "unknown", "utf8",   "wide"};
    std::string all;
    for (const CheckedSet& set : sets())
        for (const std::string& line : set.findings)
            all += line;
    for (const std::string& rule : rules)
        EXPECT_NE(all.find("[" + rule + "]"), std::string::npos) << rule;
}

} // namespace
