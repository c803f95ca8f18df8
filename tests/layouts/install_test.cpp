#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <fstream>
#include <thread>

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

TEST(Install, SaysWhichFolderCannotBeMade)
{
    TemporaryFolder folder;
    std::ofstream(folder.path("file")) << "text";
    const std::string below = folder.path("file/set");
    EXPECT_THAT([&] { installSet(pick({"English"}), below); },
                ThrowsMessage<std::runtime_error>(
                    below + ": cannot be made: Not a directory; choose another folder"));
}

TEST(Install, ReplacesTheOldSetAndLeavesOtherFilesAlone)
{
    TemporaryFolder folder;
    installSet(pick({"English", "German"}), folder.path());
    std::ofstream(folder.path("notes.txt")) << "mine";
    installSet(pick({"Russian"}), folder.path());
    EXPECT_THAT(filesIn(folder.path()),
                ElementsAre("Language_Name.json", "Language_Russian.json", "notes.txt"));
}

TEST(Install, ChangesNothingWhenItCannotWriteAll)
{
    TemporaryFolder folder;
    installSet(pick({"English"}), folder.path());
    std::filesystem::create_directories(folder.path("Language_Russian.json.new/kept"));
    EXPECT_THAT(
        [&] {
            installSet(pick({"German", "Russian"}), folder.path());
        },
        ThrowsMessage<std::runtime_error>(HasSubstr("Language_Russian.json: cannot be written")));
    EXPECT_THAT(namesIn(folder.path()), ElementsAre("English"));
    EXPECT_THAT(filesIn(folder.path()), ElementsAre("Language_English.json", "Language_Name.json",
                                                    "Language_Russian.json.new"));
}

// The catalogue as a reader finds it, and which file it was.
struct Reading {
    std::string text;
    ino_t inode;
    timespec changed;

    bool isSameFile(const Reading& other) const
    {
        return inode == other.inode && changed.tv_sec == other.changed.tv_sec &&
               changed.tv_nsec == other.changed.tv_nsec;
    }
};

Reading readNow(const std::string& folder)
{
    const int file = open(catalogueFile(folder).c_str(), O_RDONLY);
    if (file < 0)
        return {std::string(), 0, {}};
    struct stat status = {};
    fstat(file, &status);
    std::string text(static_cast<size_t>(status.st_size), '\0');
    text.resize(static_cast<size_t>(std::max<ssize_t>(0, read(file, &text[0], text.size()))));
    close(file);
    return {text, status.st_ino, status.st_mtim};
}

// Empty when each listed layout was there, or when the catalogue was replaced meanwhile.
std::string faultSeenBy(const std::string& folder)
{
    const Reading before = readNow(folder);
    if (before.text.empty() || before.text.back() != '\n')
        return "no whole catalogue: " + before.text;
    std::string fault;
    for (const std::string name : {"English", "German", "Russian"})
        if (before.text.find('"' + name + '"') != std::string::npos &&
            !std::filesystem::exists(keyMapFile(folder, name)))
            fault = name + " is not there with this catalogue: " + before.text.substr(0, 60);
    return readNow(folder).isSameFile(before) ? fault : std::string();
}

TEST(Install, NeverShowsHalfASet)
{
    TemporaryFolder folder;
    const LayoutSet sets[] = {pick({"English", "German"}), pick({"Russian"})};
    installSet(sets[1], folder.path());
    std::atomic<bool> done(false);
    std::string fault;
    std::thread reader([&] {
        while (!done && fault.empty())
            fault = faultSeenBy(folder.path());
    });
    for (int i = 0; i < 300; ++i)
        installSet(sets[i % 2], folder.path());
    done = true;
    reader.join();
    EXPECT_EQ(fault, "");
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
