#ifndef PAGE_H
#define PAGE_H

#include <memory>
#include <string>

#include <directfb.h>

#include "screen.h"
#include "text_field.h"
#include "text_line.h"

namespace host
{

// A page with one text field, drawn on a window that fills the screen and lies below the keyboard.
class Page
{
public:
    Page(const Screen& screen, const std::string& font);

    void draw(const TextLine& line, bool entered);

private:
    IDirectFBSurface* m_surface = nullptr;
    IDirectFBSurface* m_fieldSurface = nullptr; // the part of it with the field
    IDirectFBFont* m_heading = nullptr;
    IDirectFBFont* m_words = nullptr;
    std::unique_ptr<TextField> m_field;
};

} // namespace host

#endif
