// The comparison itself: it must see one pixel, and one step of one colour.

#include "test_picture.h"

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
        m_folder = pattern;
        unsetenv("VKB_UPDATE_PICTURES");
        writePng(m_folder + "/expected/one.png", m_picture);
    }

    ~PictureComparison() override
    {
        std::error_code ignored;
        fs::remove_all(m_folder, ignored);
    }

    testing::AssertionResult compare(const Picture& actual)
    {
        return isExpectedPicture("one", actual, m_folder + "/expected", m_folder + "/failed");
    }

    std::vector<uint32_t> pixelsOf(const std::string& file)
    {
        return readPng(m_folder + "/" + file).pixels;
    }

    // The picture with another pixel in this place.
    Picture with(size_t place, uint32_t pixel)
    {
        Picture changed = m_picture;
        changed.pixels[place] = pixel;
        return changed;
    }

    std::string m_folder;
    Picture m_picture = {2, 2, {0xFF1E1E1E, 0xFFFFFFFF, 0x00000000, 0x80FF8040}};
};

} // namespace

TEST_F(PictureComparison, SamePictureLeavesNothingBehind)
{
    EXPECT_EQ(pixelsOf("expected/one.png"), m_picture.pixels);
    EXPECT_TRUE(compare(m_picture));
    EXPECT_FALSE(fs::exists(m_folder + "/failed"));
}

TEST_F(PictureComparison, OneStepOfOneColourOpacityOrAnotherSizeIsADifference)
{
    const Picture actual = with(0, 0xFF1E1E1F);
    const testing::AssertionResult result = compare(actual);
    EXPECT_FALSE(result);
    EXPECT_THAT(result.message(), HasSubstr("1 of 4 pixels differ"));
    EXPECT_EQ(pixelsOf("failed/one.actual.png"), actual.pixels);
    EXPECT_EQ(pixelsOf("failed/one.expected.png"), m_picture.pixels);
    EXPECT_EQ(pixelsOf("failed/one.difference.png"),
              (std::vector<uint32_t>{0xFFFF0000, 0xFF3F3F3F, 0xFF000000, 0xFF3F2010}));

    EXPECT_FALSE(compare(with(1, 0xFEFFFFFF)));
    EXPECT_FALSE(compare(Picture{4, 1, m_picture.pixels}));
}

TEST_F(PictureComparison, MissingPictureIsAFailureUntilTheSwitchTakesTheActualOneOver)
{
    const Picture actual = with(3, 0xFF000001);
    fs::remove(m_folder + "/expected/one.png");
    EXPECT_FALSE(compare(actual));
    EXPECT_EQ(pixelsOf("failed/one.actual.png"), actual.pixels);

    setenv("VKB_UPDATE_PICTURES", "1", 1);
    EXPECT_TRUE(compare(actual));
    EXPECT_TRUE(compare(m_picture));
    unsetenv("VKB_UPDATE_PICTURES");
    EXPECT_EQ(pixelsOf("expected/one.png"), m_picture.pixels);
}
