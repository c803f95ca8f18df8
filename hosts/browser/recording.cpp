// Pictures of the whole screen.
#include "recording.h"

namespace host
{

Recording::Recording(const Screen& screen, const std::string& font, const std::string& file)
    : m_screen(screen),
      m_remote(font.empty() ? nullptr : std::make_unique<RemotePicture>(screen.directFB(), font)),
      m_recorder(makeRecorder(file, RecorderColours::All))
{
}

void Recording::add(int milliseconds)
{
    if (m_pressed.meaning != RemoteKey::Other) {
        const int released = milliseconds / 3;
        addFrame(milliseconds - released);
        m_pressed = {RemoteKey::Other, 0};
        milliseconds = released;
    }
    addFrame(milliseconds);
}

void Recording::addFrame(int milliseconds)
{
    IDirectFBSurface* frame = m_screen.copy();
    if (m_remote)
        m_remote->draw(frame, m_pressed);
    m_recorder->add(halved(pictureOf(frame)), milliseconds);
    frame->Release(frame);
}

Picture wholeScreen(const Screen& screen)
{
    IDirectFBSurface* copy = screen.copy();
    Picture picture = pictureOf(copy);
    copy->Release(copy);
    return picture;
}

} // namespace host
