// The remote control that the page shows: the key that is pressed lights up.
#ifndef HOSTS_SCREEN_REMOTE_PICTURE_H
#define HOSTS_SCREEN_REMOTE_PICTURE_H

#include <string>

#include <directfb.h>

#include "remote_keys.h"

namespace host
{

class RemotePicture
{
public:
    static constexpr int kWidth = 220; // pixels
    static constexpr int kHeight = 476;

    // Loads its font for the process; dfb is lent.
    RemotePicture(IDirectFB* dfb, const std::string& font);

    // Fills a surface of kWidth by kHeight. Does not flip.
    void draw(IDirectFBSurface* surface, const RemoteKey& pressed) const;

private:
    IDirectFBFont* m_font;
};

} // namespace host

#endif
