// Pictures in the kitty graphics protocol.
#include "kitty_image.h"

#include <memory>
#include <stdexcept>
#include <vector>

#include <glib.h>
#include <zlib.h>

namespace host
{

namespace
{

const size_t kChunk = 4096; // the protocol's limit for the data of one command
const char kEnd[] = "\033\\";

std::vector<uint8_t> compressed(const Picture& picture)
{
    std::vector<uint8_t> rgb;
    rgb.reserve(picture.rgba.size() / 4 * 3);
    for (size_t i = 0; i < picture.rgba.size(); ++i)
        if (i % 4 != 3)
            rgb.push_back(picture.rgba[i]);
    uLongf size = compressBound(rgb.size());
    std::vector<uint8_t> result(size);
    if (compress(result.data(), &size, rgb.data(), rgb.size()) != Z_OK)
        throw std::runtime_error("the picture cannot be compressed");
    result.resize(size);
    return result;
}

std::string base64(const std::vector<uint8_t>& bytes)
{
    const std::unique_ptr<gchar, decltype(&g_free)> text(
        g_base64_encode(bytes.data(), bytes.size()), &g_free);
    return text.get();
}

std::string pair(const char* key, int value)
{
    return std::string(",") + key + "=" + std::to_string(value);
}

} // namespace

std::string kittyImage(int number, const Picture& picture, CellArea cells)
{
    const std::string data = base64(compressed(picture));
    // Transmit and show, 24 bits, zlib, no answer, cursor stays.
    std::string keys = "a=T,f=24,o=z,q=2,C=1" + pair("i", number) + pair("p", number) +
                       pair("s", picture.width) + pair("v", picture.height) +
                       pair("c", cells.columns) + pair("r", cells.rows) + ",";
    std::string output;
    for (size_t at = 0; at < data.size(); at += kChunk) {
        const bool isLast = at + kChunk >= data.size();
        output += "\033_G" + keys + (isLast ? "m=0;" : "m=1;") + data.substr(at, kChunk) + kEnd;
        keys.clear();
    }
    return output;
}

std::string kittyRemoval(int number)
{
    return "\033_Ga=d,d=I,q=2" + pair("i", number) + kEnd;
}

} // namespace host
