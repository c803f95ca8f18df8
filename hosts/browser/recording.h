// Pictures and recordings of the whole screen.
#ifndef HOSTS_BROWSER_RECORDING_H
#define HOSTS_BROWSER_RECORDING_H

#include <memory>
#include <string>

#include "recorder.h"
#include "screen.h"

namespace host
{

// Keeps what the whole screen showed, at half its size.
class Recording
{
public:
    // screen is lent. Throws as makeRecorder does.
    Recording(const Screen& screen, const std::string& file);

    // milliseconds: how long it is shown.
    void add(int milliseconds);
    void finish() { m_recorder->finish(); }

private:
    const Screen& m_screen;
    std::unique_ptr<Recorder> m_recorder;
};

// What a viewer sees, all windows together.
Picture wholeScreen(const Screen& screen);

} // namespace host

#endif
