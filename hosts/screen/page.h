// A page with one text field and the picture of a remote control.
#ifndef HOSTS_SCREEN_PAGE_H
#define HOSTS_SCREEN_PAGE_H

#include <string>

#include <directfb.h>

#include "remote_picture.h"
#include "screen.h"
#include "text_field.h"
#include "text_line.h"

namespace host
{

// Drawn on a window that fills the screen and lies below the keyboard.
class Page
{
public:
    Page(const Screen& screen, const std::string& font);

    // entered: keys go to the field.
    // composed: what is being typed at the caret and not yet part of the line.
    void draw(const TextLine& line, bool entered, const std::string& composed);

    void greet(const std::string& name);

    // Lights the key up on the remote control; a key of no meaning leaves it dark.
    void showPressed(const RemoteKey& key);

    IDirectFBSurface* surface() const { return m_surface; }

private:
    void drawWords(const std::string& heading, const char* words);

    IDirectFBSurface* m_surface = nullptr;
    IDirectFBSurface* m_field_surface = nullptr; // the part of it with the field
    IDirectFBFont* m_heading = nullptr;
    IDirectFBFont* m_words = nullptr;
    TextField m_field;
    RemotePicture m_remote;
};

} // namespace host

#endif
