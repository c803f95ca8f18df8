#ifndef GIF_RECORDER_H
#define GIF_RECORDER_H

#include <string>
#include <vector>

#include "recorder.h"

struct GifFileType;

namespace host
{

// Writes only what differs from the frame before, in grey: the keyboard has no other colours.
class GifRecorder : public Recorder
{
public:
    explicit GifRecorder(const std::string& file);
    ~GifRecorder() override;

    void add(const Picture& frame, int milliseconds) override;
    void finish() override;

private:
    struct Area {
        int left, top, width, height;
    };

    void begin(int width, int height);
    void write(const Area& area, int milliseconds);
    Area changedArea(const std::vector<unsigned char>& grey) const;
    [[noreturn]] void fail() const;

    std::string m_file;
    GifFileType* m_gif = nullptr;
    int m_width = 0;
    int m_height = 0;
    std::vector<unsigned char> m_shown; // one byte for each pixel
};

} // namespace host

#endif
