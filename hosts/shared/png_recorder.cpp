#include "png_recorder.h"

#include <cstdio>
#include <stdexcept>

#include <png.h>

namespace host
{

void writePng(const std::string& file, const Picture& picture)
{
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = PNG_FORMAT_RGBA;
    if (png_image_write_to_file(&image, file.c_str(), 0, picture.rgba.data(), 0, nullptr) == 0)
        throw std::runtime_error(file + ": cannot be written: " + image.message);
}

void PngRecorder::add(const Picture& frame, int)
{
    char number[24];
    std::snprintf(number, sizeof number, "-%03d.png", ++m_frames);
    writePng(m_prefix + number, frame);
}

} // namespace host
