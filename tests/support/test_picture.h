#ifndef TESTS_SUPPORT_TEST_PICTURE_H
#define TESTS_SUPPORT_TEST_PICTURE_H

#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace test_support
{

// Pixels row by row from the top, each 0xAARRGGBB.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<uint32_t> pixels;

    bool operator==(const Picture& other) const
    {
        return width == other.width && height == other.height && pixels == other.pixels;
    }
};

// PNG files. Both throw std::runtime_error when the file cannot be read or written.
Picture readPng(const std::string& file);
void writePng(const std::string& file, const Picture& picture);

// Compares with the picture of this name in the expected folder. On a difference, leaves expected,
// actual and difference in the failed folder and says where; fault tests, which mean to fail,
// choose another by the environment variable VKB_FAILED_PICTURES. With VKB_UPDATE_PICTURES=1 it
// writes the expected picture instead.
testing::AssertionResult isExpectedPicture(const std::string& name, const Picture& actual,
                                           const std::string& expected_folder,
                                           const std::string& failed_folder);

// The same with the folders that the program is built with.
#define EXPECT_PICTURE(name, actual)                                                               \
    EXPECT_TRUE(                                                                                   \
        test_support::isExpectedPicture(name, actual, VKB_EXPECTED_PICTURES, VKB_FAILED_PICTURES))

} // namespace test_support

#endif
