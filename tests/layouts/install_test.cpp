#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "install.h"
#include "json_file.h"
#include "shipped.h"

using namespace layouts;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::ThrowsMessage;

namespace
{

LayoutSet pick(const std::vector<std::string>& names)
{
    return selectLayouts(readLayoutSet(shippedFolder()), names);
}

std::vector<std::string> namesIn(const std::string& folder)
{
    return readCatalogue(catalogueFile(folder)).names;
}

std::vector<std::string> filesIn(const std::string& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

TEST(Install, ListsJustTheseInThisOrder)
{
    TemporaryFolder folder;
    installSet(pick({"Turkish", "English"}), folder.path("set"));
    EXPECT_THAT(namesIn(folder.path("set")), ElementsAre("Turkish", "English"));
    EXPECT_THAT(
        filesIn(folder.path("set")),
        ElementsAre("Language_English.json", "Language_Name.json", "Language_Turkish.json"));
    EXPECT_EQ(readFile(folder.path("set/Language_Turkish.json")),
              readFile(keyMapFile(shippedFolder(), "Turkish")));
    EXPECT_THAT(
        lines(Checker(resource("schema")).check(readLayoutSet(folder.path("set")), CheckOptions())),
        IsEmpty());
}

TEST(Install, ReplacesTheOldSetWholeAndLeavesNothingBehind)
{
    TemporaryFolder folder;
    installSet(pick({"English", "German"}), folder.path("set"));
    installSet(pick({"Russian"}), folder.path("set/"));
    EXPECT_THAT(filesIn(folder.path("set")),
                ElementsAre("Language_Name.json", "Language_Russian.json"));
    EXPECT_THAT(filesIn(folder.path()), ElementsAre("set"));
}

// A reader that opened the folder goes on with the set that it began with.
TEST(Install, DoesNotTouchTheSetThatAReaderHolds)
{
    TemporaryFolder folder;
    installSet(pick({"English"}), folder.path("set"));
    std::ifstream catalogue(catalogueFile(folder.path("set")));
    installSet(pick({"Russian"}), folder.path("set"));
    std::string text((std::istreambuf_iterator<char>(catalogue)), std::istreambuf_iterator<char>());
    EXPECT_THAT(text, HasSubstr("\"English\""));
}

TEST(Install, RefusesToLoseOtherFiles)
{
    TemporaryFolder folder;
    installSet(pick({"English"}), folder.path("set"));
    std::ofstream(folder.path("set/notes.txt")) << "mine";
    EXPECT_THAT([&] { installSet(pick({"German"}), folder.path("set")); },
                ThrowsMessage<std::runtime_error>(
                    HasSubstr("notes.txt: is no layout file and would be lost")));
    EXPECT_THAT(namesIn(folder.path("set")), ElementsAre("English"));
}

TEST(Install, SaysWhichLayoutIsMissing)
{
    EXPECT_THAT(
        [] {
            pick({"English", "Klingon"});
        },
        ThrowsMessage<std::runtime_error>(HasSubstr("Klingon: no such layout")));
}

TEST(WriteFile, LeavesTheOldFileWhenItCannotWrite)
{
    TemporaryFolder folder;
    EXPECT_THAT([&] { writeFile(folder.path("none/file"), "text"); },
                ThrowsMessage<std::runtime_error>(HasSubstr("none/file: cannot be written")));
}

} // namespace
