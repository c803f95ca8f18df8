#ifndef PICTURE_H
#define PICTURE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

// Pixels row by row from the top, each 0xAARRGGBB.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<uint32_t> pixels;

    bool operator==(const Picture& other) const;
};

// PNG files. Both throw std::runtime_error when the file cannot be read or written.
Picture readPng(const std::string& file);
void writePng(const std::string& file, const Picture& picture);

// Pixels that are not the same. Pictures of different sizes differ in every pixel.
size_t countDifferent(const Picture& left, const Picture& right);

// The left picture, dark, with each pixel that differs in red.
Picture difference(const Picture& left, const Picture& right);

// Compares with the picture of this name in the expected folder. On a difference, leaves expected,
// actual and difference in the failed folder and says where. With the environment variable
// VKB_UPDATE_PICTURES=1 it writes the expected picture instead.
testing::AssertionResult isExpectedPicture(const std::string& name, const Picture& actual,
                                           const std::string& expected_folder,
                                           const std::string& failed_folder);

// The same with this suite's folders.
testing::AssertionResult isExpectedPicture(const std::string& name, const Picture& actual);

#define EXPECT_PICTURE(name, actual) EXPECT_TRUE(isExpectedPicture(name, actual))

#endif
