// Pictures and recordings of the whole screen.
#ifndef HOSTS_BROWSER_RECORDING_H
#define HOSTS_BROWSER_RECORDING_H

#include <memory>
#include <string>

#include "recorder.h"
#include "remote_keys.h"
#include "remote_picture.h"
#include "screen.h"

namespace host
{

// Keeps what the whole screen showed, at half its size, with the remote control beside the
// keyboard.
class Recording
{
public:
    // screen is lent; an empty font leaves the remote control out. Throws as makeRecorder does.
    Recording(const Screen& screen, const std::string& font, const std::string& file);

    // The next frame shows this key pressed.
    void press(const RemoteKey& key) { m_pressed = key; }

    // milliseconds: how long it is shown; with a pressed key a part of it after the release.
    void add(int milliseconds);
    void finish() { m_recorder->finish(); }

private:
    void addFrame(int milliseconds);

    const Screen& m_screen;
    std::unique_ptr<RemotePicture> m_remote; // null without a font
    RemoteKey m_pressed = {RemoteKey::Other, 0};
    std::unique_ptr<Recorder> m_recorder;
};

// What a viewer sees, all windows together.
Picture wholeScreen(const Screen& screen);

} // namespace host

#endif
