#include "gif_recorder.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <stdexcept>

#include <fcntl.h>
#include <gif_lib.h>

namespace host
{

namespace
{

const int kGreys = 64; // enough for smooth letters; fewer make a smaller file
const int kGreyStep = 256 / kGreys;
const int kBits = 6;

const int kColours = 256;
const int kColourBits = 8;

using ColourMap = std::unique_ptr<ColorMapObject, decltype(&GifFreeMapObject)>;

std::vector<uint32_t> coloursOf(const Picture& picture)
{
    std::vector<uint32_t> colours;
    colours.reserve(picture.rgba.size() / 4);
    for (size_t i = 0; i < picture.rgba.size(); i += 4)
        colours.push_back(static_cast<uint32_t>(picture.rgba[i] << 16 | picture.rgba[i + 1] << 8 |
                                                picture.rgba[i + 2]));
    return colours;
}

std::vector<uint32_t> greyOf(const Picture& picture)
{
    std::vector<uint32_t> grey;
    grey.reserve(picture.rgba.size() / 4);
    for (size_t i = 0; i < picture.rgba.size(); i += 4) {
        const int sum = picture.rgba[i] + picture.rgba[i + 1] + picture.rgba[i + 2];
        grey.push_back(static_cast<uint32_t>(sum / 3 / kGreyStep));
    }
    return grey;
}

// Starts again at the first frame, for ever.
bool putEndlessLoop(GifFileType* gif)
{
    const char name[] = "NETSCAPE2.0";
    const GifByteType loops[] = {1, 0, 0};
    return EGifPutExtensionLeader(gif, APPLICATION_EXT_FUNC_CODE) == GIF_OK &&
           EGifPutExtensionBlock(gif, sizeof name - 1, name) == GIF_OK &&
           EGifPutExtensionBlock(gif, sizeof loops, loops) == GIF_OK &&
           EGifPutExtensionTrailer(gif) == GIF_OK;
}

bool putDelay(GifFileType* gif, int milliseconds)
{
    GraphicsControlBlock control = {};
    control.DisposalMode = DISPOSE_DO_NOT;
    control.DelayTime = milliseconds / 10;
    control.TransparentColor = NO_TRANSPARENT_COLOR;
    GifByteType bytes[4];
    const size_t length = EGifGCBToExtension(&control, bytes);
    return EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, static_cast<int>(length), bytes) == GIF_OK;
}

} // namespace

GifRecorder::GifRecorder(const std::string& file, RecorderColours colours)
    : m_file(file), m_is_grey(colours == RecorderColours::Grey)
{
    // Opened here, as the library would keep the file from everybody but its owner.
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor < 0)
        throw std::runtime_error(file + ": cannot be made: " + std::strerror(errno));
    int error = 0;
    m_gif = EGifOpenFileHandle(descriptor, &error);
    if (m_gif == nullptr)
        throw std::runtime_error(file + ": cannot be made: " + GifErrorString(error));
    EGifSetGifVersion(m_gif, true);
}

GifRecorder::~GifRecorder()
{
    if (m_gif != nullptr)
        EGifCloseFile(m_gif, nullptr);
}

void GifRecorder::add(const Picture& frame, int milliseconds)
{
    const bool isFirst = m_shown.empty();
    if (isFirst)
        begin(frame.width, frame.height);
    std::vector<uint32_t> pixels = m_is_grey ? greyOf(frame) : coloursOf(frame);
    const Area area = isFirst ? Area{0, 0, frame.width, frame.height} : changedArea(pixels);
    m_shown = std::move(pixels);
    write(area, milliseconds);
}

void GifRecorder::finish()
{
    GifFileType* gif = m_gif;
    m_gif = nullptr;
    int error = 0;
    if (EGifCloseFile(gif, &error) != GIF_OK)
        throw std::runtime_error(m_file + ": cannot be written: " + GifErrorString(error));
}

void GifRecorder::begin(int width, int height)
{
    m_width = width;
    m_height = height;
    const ColourMap greys(GifMakeMapObject(kGreys, nullptr), &GifFreeMapObject);
    if (!greys)
        fail();
    for (int i = 0; i < kGreys; ++i) {
        const GifByteType level = static_cast<GifByteType>(i * 255 / (kGreys - 1));
        greys->Colors[i] = {level, level, level};
    }
    const int bits = m_is_grey ? kBits : kColourBits;
    if (EGifPutScreenDesc(m_gif, width, height, bits, 0, m_is_grey ? greys.get() : nullptr) !=
            GIF_OK ||
        !putEndlessLoop(m_gif))
        fail();
}

void GifRecorder::write(const Area& area, int milliseconds)
{
    if (!putDelay(m_gif, milliseconds))
        fail();
    if (m_is_grey)
        writeGrey(area);
    else
        writeColours(area);
}

void GifRecorder::writeGrey(const Area& area)
{
    if (EGifPutImageDesc(m_gif, area.left, area.top, area.width, area.height, false, nullptr) !=
        GIF_OK)
        fail();
    std::vector<GifByteType> line(static_cast<size_t>(area.width));
    for (int row = area.top; row < area.top + area.height; ++row) {
        const uint32_t* from = pixel(area.left, row);
        std::transform(from, from + area.width, line.begin(),
                       [](uint32_t level) { return static_cast<GifByteType>(level); });
        if (EGifPutLine(m_gif, line.data(), area.width) != GIF_OK)
            fail();
    }
}

void GifRecorder::writeColours(const Area& area)
{
    const size_t count = static_cast<size_t>(area.width) * static_cast<size_t>(area.height);
    std::vector<GifByteType> red, green, blue, chosen(count);
    for (std::vector<GifByteType>* channel : {&red, &green, &blue})
        channel->reserve(count);
    for (int row = area.top; row < area.top + area.height; ++row) {
        const uint32_t* from = pixel(area.left, row);
        for (int i = 0; i < area.width; ++i) {
            red.push_back(static_cast<GifByteType>(from[i] >> 16));
            green.push_back(static_cast<GifByteType>(from[i] >> 8));
            blue.push_back(static_cast<GifByteType>(from[i]));
        }
    }
    const ColourMap colours(GifMakeMapObject(kColours, nullptr), &GifFreeMapObject);
    int used = kColours;
    if (!colours ||
        GifQuantizeBuffer(static_cast<unsigned>(area.width), static_cast<unsigned>(area.height),
                          &used, red.data(), green.data(), blue.data(), chosen.data(),
                          colours->Colors) != GIF_OK ||
        EGifPutImageDesc(m_gif, area.left, area.top, area.width, area.height, false,
                         colours.get()) != GIF_OK)
        fail();
    for (int row = 0; row < area.height; ++row)
        if (EGifPutLine(m_gif, &chosen[static_cast<size_t>(row) * static_cast<size_t>(area.width)],
                        area.width) != GIF_OK)
            fail();
}

const uint32_t* GifRecorder::pixel(int x, int y) const
{
    return &m_shown[static_cast<size_t>(y) * static_cast<size_t>(m_width) + static_cast<size_t>(x)];
}

// At least one pixel, as an image cannot be empty.
GifRecorder::Area GifRecorder::changedArea(const std::vector<uint32_t>& pixels) const
{
    int left = m_width, top = m_height, right = -1, bottom = -1;
    for (int y = 0; y < m_height; ++y) {
        for (int x = 0; x < m_width; ++x) {
            const size_t i =
                static_cast<size_t>(y) * static_cast<size_t>(m_width) + static_cast<size_t>(x);
            if (pixels[i] == m_shown[i])
                continue;
            left = std::min(left, x);
            right = std::max(right, x);
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
    }
    if (right < 0)
        return {0, 0, 1, 1};
    return {left, top, right - left + 1, bottom - top + 1};
}

void GifRecorder::fail() const
{
    throw std::runtime_error(m_file + ": cannot be written: " + GifErrorString(m_gif->Error));
}

} // namespace host
