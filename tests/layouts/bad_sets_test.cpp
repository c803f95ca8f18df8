#include <fstream>
#include <memory>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "font_files.h"
#include "json_file.h"
#include "shipped.h"

using namespace layouts;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace
{

// A set's file "options" has lines as the command line has them: font FILE, screen WxH.
CheckOptions optionsOf(const std::string& folder, FontCache& fonts)
{
    CheckOptions options;
    std::ifstream in(folder + "/options");
    for (std::string name, value; in >> name >> value;) {
        if (name == "font")
            options.font = [&fonts, value](const std::string&) { return &fonts.open(value); };
        else if (std::sscanf(value.c_str(), "%dx%d", &options.screenWidth, &options.screenHeight) !=
                 2)
            ADD_FAILURE() << folder << "/options: found " << name << " " << value;
    }
    return options;
}

std::vector<std::string> findingsOf(const std::string& folder)
{
    FontCache fonts;
    return lines(
        Checker(resource("schema")).check(readLayoutSet(folder), optionsOf(folder, fonts)));
}

std::vector<std::string> linesOf(const std::string& file)
{
    std::vector<std::string> result;
    std::istringstream in(readFile(file));
    for (std::string line; std::getline(in, line);)
        result.push_back(line);
    return result;
}

std::string testName(const testing::TestParamInfo<std::string>& info)
{
    std::string name = info.param;
    for (char& c : name)
        c = c == '-' ? '_' : c;
    return name;
}

class BadSet : public testing::TestWithParam<std::string>
{
};

TEST_P(BadSet, GivesItsFindingsAndNoOther)
{
    const std::string folder = std::string(BAD_SETS) + "/" + GetParam();
    const std::vector<std::string> expected = linesOf(folder + "/expected.txt");
    ASSERT_FALSE(expected.empty()) << "a set without findings is not bad";
    EXPECT_THAT(findingsOf(folder), ElementsAreArray(expected));
}

INSTANTIATE_TEST_SUITE_P(Sets, BadSet, testing::ValuesIn(foldersIn(BAD_SETS)), testName);

class OddSet : public testing::TestWithParam<std::string>
{
};

TEST_P(OddSet, IsRight)
{
    EXPECT_THAT(findingsOf(std::string(ODD_SETS) + "/" + GetParam()), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Sets, OddSet, testing::ValuesIn(foldersIn(ODD_SETS)), testName);

TEST(BadSets, AreManyAndCoverEveryRule)
{
    EXPECT_GE(foldersIn(BAD_SETS).size(), 60u);
    EXPECT_GE(foldersIn(ODD_SETS).size(), 5u);
    const std::vector<std::string> rules = {
        "back",    "character", "count",   "duplicate", "file",    "glyph",  "id",        "label",
        "last",    "leave",     "lengths", "missing",   "name",    "needed", "neighbour", "nfc",
        "nothing", "orphan",    "overlap", "pixels",    "range",   "reach",  "screen",    "size",
        "special", "syntax",    "twice",   "type",      "unknown", "utf8",   "wide"};
    std::string all;
    for (const std::string& name : foldersIn(BAD_SETS))
        all += readFile(std::string(BAD_SETS) + "/" + name + "/expected.txt");
    for (const std::string& rule : rules)
        EXPECT_NE(all.find("[" + rule + "]"), std::string::npos) << rule;
}

} // namespace
