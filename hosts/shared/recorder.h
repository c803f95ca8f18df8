#ifndef HOSTS_SHARED_RECORDER_H
#define HOSTS_SHARED_RECORDER_H

#include <memory>
#include <string>

#include "picture.h"

namespace host
{

enum class RecorderColours {
    Grey, // for a GIF; a PNG has its own colours always
    All,
};

// Keeps what was shown: a moving GIF picture, or one PNG file for each frame.
class Recorder
{
public:
    virtual ~Recorder() = default;

    // milliseconds: how long the frame is shown. All frames have the first one's size. Throws
    // std::runtime_error when it cannot be written.
    virtual void add(const Picture& frame, int milliseconds) = 0;

    // Completes the file; without it a GIF may lack its end.
    virtual void finish() = 0;
};

// By the file name's end: NAME.gif, or NAME.png, which gives NAME-001.png, NAME-002.png ...
// Throws std::runtime_error for another end or a file that cannot be made.
std::unique_ptr<Recorder> makeRecorder(const std::string& file,
                                       RecorderColours colours = RecorderColours::Grey);

} // namespace host

#endif
