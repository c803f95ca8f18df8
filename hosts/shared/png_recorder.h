#ifndef HOSTS_SHARED_PNG_RECORDER_H
#define HOSTS_SHARED_PNG_RECORDER_H

#include <string>

#include "recorder.h"

namespace host
{

// Throws std::runtime_error when the file cannot be written.
void writePng(const std::string& file, const Picture& picture);

class PngRecorder : public Recorder
{
public:
    explicit PngRecorder(const std::string& prefix) : m_prefix(prefix) {}

    void add(const Picture& frame, int milliseconds) override;
    void finish() override {}

private:
    std::string m_prefix;
    int m_frames = 0;
};

} // namespace host

#endif
