#ifndef HOSTS_SHARED_GIF_RECORDER_H
#define HOSTS_SHARED_GIF_RECORDER_H

#include <cstdint>
#include <string>
#include <vector>

#include "recorder.h"

struct GifFileType;

namespace host
{

// Writes only what differs from the frame before: in grey, which is small and has all that the
// keyboard needs, or each frame in the 256 colours that suit it.
class GifRecorder : public Recorder
{
public:
    GifRecorder(const std::string& file, RecorderColours colours);
    ~GifRecorder() override;

    void add(const Picture& frame, int milliseconds) override;
    void finish() override;

private:
    struct Area {
        int left, top, width, height;
    };

    void begin(int width, int height);
    void write(const Area& area, int milliseconds);
    void writeGrey(const Area& area);
    void writeColours(const Area& area);
    const uint32_t* pixel(int x, int y) const;
    Area changedArea(const std::vector<uint32_t>& pixels) const;
    [[noreturn]] void fail() const;

    std::string m_file;
    GifFileType* m_gif = nullptr;
    int m_width = 0;
    int m_height = 0;
    bool m_is_grey;
    std::vector<uint32_t> m_shown; // for each pixel a level of grey, or 0xRRGGBB
};

} // namespace host

#endif
