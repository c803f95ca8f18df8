// The comparison itself: it must see one pixel, and one step of one colour.

#include "expected_picture.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include <gmock/gmock.h>

namespace fs = std::filesystem;
using testing::HasSubstr;
using namespace test_support;

namespace
{

class PictureComparison : public testing::Test
{
protected:
    PictureComparison()
    {
        std::string pattern = (fs::temp_directory_path() / "vkb-picture-XXXXXX").string();
        if (mkdtemp(&pattern[0]) == nullptr)
            throw std::runtime_error(pattern + ": cannot make the folder");
        folder = pattern;
        unsetenv("VKB_UPDATE_PICTURES");
        writePng(folder + "/expected/one.png", picture);
    }

    ~PictureComparison() override
    {
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }

    testing::AssertionResult compare(const Picture& actual)
    {
        return isExpectedPicture("one", actual, folder + "/expected", folder + "/failed");
    }

    std::string folder;
    Picture picture = {2, 2, {0xFF1E1E1E, 0xFFFFFFFF, 0x00000000, 0x80FF8040}};
};

} // namespace

TEST_F(PictureComparison, FileGivesBackEachPixelAndItsOpacity)
{
    EXPECT_EQ(readPng(folder + "/expected/one.png").pixels, picture.pixels);
}

TEST_F(PictureComparison, SamePictureLeavesNothingBehind)
{
    EXPECT_TRUE(compare(picture));
    EXPECT_FALSE(fs::exists(folder + "/failed"));
}

TEST_F(PictureComparison, OneStepOfOneColourIsADifference)
{
    Picture actual = picture;
    actual.pixels[0] += 1;
    const testing::AssertionResult result = compare(actual);
    EXPECT_FALSE(result);
    EXPECT_THAT(result.message(), HasSubstr("1 of 4 pixels differ"));
    EXPECT_EQ(readPng(folder + "/failed/one.actual.png").pixels, actual.pixels);
    EXPECT_EQ(readPng(folder + "/failed/one.expected.png").pixels, picture.pixels);
    EXPECT_EQ(readPng(folder + "/failed/one.difference.png").pixels,
              (std::vector<uint32_t>{0xFFFF0000, 0xFF3F3F3F, 0xFF000000, 0xFF3F2010}));
}

TEST_F(PictureComparison, OpacityAloneIsADifference)
{
    Picture actual = picture;
    actual.pixels[1] = 0xFEFFFFFF;
    EXPECT_FALSE(compare(actual));
}

TEST_F(PictureComparison, OtherSizeIsADifference)
{
    EXPECT_FALSE(compare(Picture{4, 1, picture.pixels}));
}

TEST_F(PictureComparison, MissingPictureIsAFailureThatLeavesTheActualOne)
{
    fs::remove(folder + "/expected/one.png");
    EXPECT_FALSE(compare(picture));
    EXPECT_EQ(readPng(folder + "/failed/one.actual.png").pixels, picture.pixels);
}

TEST_F(PictureComparison, SwitchTakesTheActualPictureOver)
{
    Picture actual = picture;
    actual.pixels[3] = 0xFF000001;
    setenv("VKB_UPDATE_PICTURES", "1", 1);
    EXPECT_TRUE(compare(actual));
    unsetenv("VKB_UPDATE_PICTURES");
    EXPECT_EQ(readPng(folder + "/expected/one.png").pixels, actual.pixels);
    EXPECT_TRUE(compare(actual));
}
