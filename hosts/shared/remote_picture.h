// A picture of the remote control, whose pressed key lights up.
#ifndef HOSTS_SHARED_REMOTE_PICTURE_H
#define HOSTS_SHARED_REMOTE_PICTURE_H

#include <string>

#include <directfb.h>

#include "remote_keys.h"

namespace host
{

class RemotePicture
{
public:
    // In pixels of a screen of 1920 by 1080, which the keyboard leaves free on its left.
    static constexpr int kLeft = 330;
    static constexpr int kTop = 590;
    static constexpr int kWidth = 220;
    static constexpr int kHeight = 476;

    // Loads its font for the process; dfb is lent.
    RemotePicture(IDirectFB* dfb, const std::string& font);

    // Draws over the whole screen's surface, at its place. Does not flip.
    void draw(IDirectFBSurface* screen, const RemoteKey& pressed) const;

private:
    IDirectFBFont* m_font;
};

} // namespace host

#endif
