#include "expected_picture.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace fs = std::filesystem;
using namespace test_support;

namespace
{

const uint32_t kRed = 0xFFFF0000;

uint32_t darkened(uint32_t pixel)
{
    return 0xFF000000 | (pixel >> 2 & 0x3F3F3F);
}

bool isUpdate()
{
    const char* update = std::getenv("VKB_UPDATE_PICTURES");
    return update != nullptr && std::strcmp(update, "1") == 0;
}

// Pixels that are not the same. Pictures of different sizes differ in every pixel.
size_t countDifferent(const Picture& left, const Picture& right)
{
    if (left.width != right.width || left.height != right.height)
        return std::max(left.pixels.size(), right.pixels.size());
    size_t count = 0;
    for (size_t i = 0; i < left.pixels.size(); ++i)
        count += left.pixels[i] != right.pixels[i];
    return count;
}

// The left picture, dark, with each pixel that differs in red.
Picture difference(const Picture& left, const Picture& right)
{
    Picture result = left;
    const bool same_size = left.width == right.width && left.height == right.height;
    for (size_t i = 0; i < result.pixels.size(); ++i)
        result.pixels[i] =
            same_size && left.pixels[i] == right.pixels[i] ? darkened(left.pixels[i]) : kRed;
    return result;
}

} // namespace

testing::AssertionResult isExpectedPicture(const std::string& name, const Picture& actual,
                                           const std::string& expected_folder,
                                           const std::string& failed_folder)
{
    const std::string file = expected_folder + "/" + name + ".png";
    if (isUpdate()) {
        if (!fs::exists(file) || !(readPng(file) == actual))
            writePng(file, actual);
        return testing::AssertionSuccess();
    }

    const std::string left_over = failed_folder + "/" + name;
    if (!fs::exists(file)) {
        writePng(left_over + ".actual.png", actual);
        return testing::AssertionFailure()
               << file << ": no such picture, the actual one is " << left_over
               << ".actual.png; look at it, then run with VKB_UPDATE_PICTURES=1";
    }

    const Picture expected = readPng(file);
    if (expected == actual) {
        for (const char* part : {".expected.png", ".actual.png", ".difference.png"})
            fs::remove(left_over + part);
        return testing::AssertionSuccess();
    }

    writePng(left_over + ".expected.png", expected);
    writePng(left_over + ".actual.png", actual);
    writePng(left_over + ".difference.png", difference(expected, actual));
    return testing::AssertionFailure()
           << file << ": " << countDifferent(expected, actual) << " of " << expected.pixels.size()
           << " pixels differ, expected " << expected.width << "x" << expected.height << ", found "
           << actual.width << "x" << actual.height << "; look at " << left_over
           << ".{expected,actual,difference}.png, and when the new one is right, run with "
              "VKB_UPDATE_PICTURES=1";
}

testing::AssertionResult isExpectedPicture(const std::string& name, const Picture& actual)
{
    // The fault tests, which mean to fail, leave theirs elsewhere.
    const char* elsewhere = std::getenv("VKB_FAILED_PICTURES");
    return isExpectedPicture(name, actual, VKB_EXPECTED_PICTURES,
                             elsewhere != nullptr ? elsewhere : VKB_FAILED_PICTURES);
}
