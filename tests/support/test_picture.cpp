#include "test_picture.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include <png.h>

namespace fs = std::filesystem;

namespace test_support
{

namespace
{

// In memory a 0xAARRGGBB word is blue first on the machines that this runs on.
const png_uint_32 kFormat = PNG_FORMAT_BGRA;

const uint32_t kRed = 0xFFFF0000;

uint32_t darkened(uint32_t pixel)
{
    return 0xFF000000 | (pixel >> 2 & 0x3F3F3F);
}

std::string variable(const char* name, const std::string& otherwise = "")
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : otherwise;
}

// The left picture, dark, with each pixel that differs in red; all do when the sizes differ.
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

Picture readPng(const std::string& file)
{
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, file.c_str()) == 0)
        throw std::runtime_error(file + ": " + image.message + ", expected a PNG");
    image.format = kFormat;

    Picture picture = {static_cast<int>(image.width), static_cast<int>(image.height),
                       std::vector<uint32_t>(size_t(image.width) * image.height)};
    if (png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr) == 0)
        throw std::runtime_error(file + ": " + image.message + ", expected a PNG");
    return picture;
}

void writePng(const std::string& file, const Picture& picture)
{
    fs::create_directories(fs::path(file).parent_path());
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = kFormat;
    if (png_image_write_to_file(&image, file.c_str(), 0, picture.pixels.data(), 0, nullptr) == 0)
        throw std::runtime_error(file + ": " + image.message);
}

testing::AssertionResult isExpectedPicture(const std::string& name, const Picture& actual,
                                           const std::string& expected_folder,
                                           const std::string& failed_folder)
{
    const std::string file = expected_folder + "/" + name + ".png";
    if (variable("VKB_UPDATE_PICTURES") == "1") {
        if (!fs::exists(file) || !(readPng(file) == actual))
            writePng(file, actual);
        return testing::AssertionSuccess();
    }

    const std::string left_over = variable("VKB_FAILED_PICTURES", failed_folder) + "/" + name;
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
    const Picture differing = difference(expected, actual);
    writePng(left_over + ".difference.png", differing);
    return testing::AssertionFailure()
           << file << ": " << std::count(differing.pixels.begin(), differing.pixels.end(), kRed)
           << " of " << expected.pixels.size() << " pixels differ, expected " << expected.width
           << "x" << expected.height << ", found " << actual.width << "x" << actual.height
           << "; look at " << left_over
           << ".{expected,actual,difference}.png, and when the new one is right, run with "
              "VKB_UPDATE_PICTURES=1";
}

} // namespace test_support
