#ifndef HOSTS_SHARED_TEXT_FIELD_H
#define HOSTS_SHARED_TEXT_FIELD_H

#include <string>

#include <directfb.h>

namespace host
{

class TextLine;

// A text field as a page shows it: a label above a box with the text and its caret. The end of a
// long text, where the caret is, stays in sight.
class TextField
{
public:
    static constexpr int kHeight = 120; // pixels

    // Loads the font for itself and keeps it for the process; dfb is lent. A font that DirectFB
    // cannot load ends the process with its message.
    TextField(IDirectFB* dfb, const std::string& font, const std::string& label);

    // Draws over the surface's whole width, kHeight pixels from y on; the background shows
    // around the box. What is being composed is underlined before the caret. Does not flip.
    void draw(IDirectFBSurface* surface, const TextLine& line, int y, bool entered,
              const std::string& composed = "") const;

private:
    int widthOf(const std::string& text) const;

    IDirectFBFont* m_small = nullptr;
    IDirectFBFont* m_large = nullptr;
    std::string m_label;
};

} // namespace host

#endif
