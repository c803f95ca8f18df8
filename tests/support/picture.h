#ifndef TESTS_SUPPORT_PICTURE_H
#define TESTS_SUPPORT_PICTURE_H

#include <cstdint>
#include <string>
#include <vector>

namespace test_support
{

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

} // namespace test_support

#endif
