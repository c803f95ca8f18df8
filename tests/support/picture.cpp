#include "picture.h"

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

png_image newImage()
{
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    return image;
}

} // namespace

bool Picture::operator==(const Picture& other) const
{
    return width == other.width && height == other.height && pixels == other.pixels;
}

Picture readPng(const std::string& file)
{
    png_image image = newImage();
    if (png_image_begin_read_from_file(&image, file.c_str()) == 0)
        throw std::runtime_error(file + ": " + image.message + ", expected a PNG");
    image.format = kFormat;

    Picture picture;
    picture.width = static_cast<int>(image.width);
    picture.height = static_cast<int>(image.height);
    picture.pixels.resize(size_t(image.width) * image.height);
    if (png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr) == 0)
        throw std::runtime_error(file + ": " + image.message + ", expected a PNG");
    return picture;
}

void writePng(const std::string& file, const Picture& picture)
{
    fs::create_directories(fs::path(file).parent_path());
    png_image image = newImage();
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = kFormat;
    if (png_image_write_to_file(&image, file.c_str(), 0, picture.pixels.data(), 0, nullptr) == 0)
        throw std::runtime_error(file + ": " + image.message);
}

} // namespace test_support
