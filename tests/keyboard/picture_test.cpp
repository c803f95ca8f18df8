// The comparison itself: what a difference leaves behind, and how it is taken over.

#include "test_picture.h"

#include <cstdlib>
#include <filesystem>

#include <gmock/gmock.h>

namespace fs = std::filesystem;
using namespace test_support;

TEST(PictureComparison, ADifferenceLeavesThreePicturesUntilItIsTakenOver)
{
    unsetenv("VKB_FAILED_PICTURES"); // it goes before the folder given here
    std::string folder = (fs::temp_directory_path() / "vkb-picture-XXXXXX").string();
    ASSERT_NE(mkdtemp(&folder[0]), nullptr);
    const auto compare = [&](const Picture& actual) {
        return isExpectedPicture("one", actual, folder + "/expected", folder + "/failed");
    };
    const auto pixels = [&](const char* file) { return readPng(folder + file).pixels; };
    const Picture right = {2, 2, {0xFF1E1E1E, 0xFFFFFFFF, 0x00000000, 0x80FF8040}};
    const Picture wrong = {2, 2, {0xFF1E1E1F, 0xFFFFFFFF, 0x00000000, 0x80FF8040}};
    const Picture wide = {4, 1, right.pixels};

    EXPECT_FALSE(compare(wrong)) << "there is none yet";
    EXPECT_EQ(pixels("/failed/one.actual.png"), wrong.pixels);
    writePng(folder + "/expected/one.png", right);
    const testing::AssertionResult result = compare(wrong);
    EXPECT_FALSE(result);
    EXPECT_THAT(result.message(), testing::HasSubstr("1 of 4 pixels differ"));
    EXPECT_EQ(pixels("/failed/one.expected.png"), right.pixels);
    EXPECT_EQ(pixels("/failed/one.difference.png"),
              (std::vector<uint32_t>{0xFFFF0000, 0xFF3F3F3F, 0xFF000000, 0xFF3F2010}));
    EXPECT_FALSE(compare(wide));
    EXPECT_TRUE(compare(right));
    EXPECT_TRUE(fs::is_empty(folder + "/failed"));

    setenv("VKB_UPDATE_PICTURES", "1", 1);
    EXPECT_TRUE(compare(wrong));
    unsetenv("VKB_UPDATE_PICTURES");
    EXPECT_TRUE(compare(wrong));
    fs::remove_all(folder);
}
