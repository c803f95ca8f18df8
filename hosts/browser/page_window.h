// The page's window on the screen.
#ifndef HOSTS_BROWSER_PAGE_WINDOW_H
#define HOSTS_BROWSER_PAGE_WINDOW_H

#include <cstdint>
#include <vector>

#include <directfb.h>

#include "screen.h"

namespace host
{

// The window that fills the screen with the page, below the keyboard's.
class PageWindow
{
public:
    explicit PageWindow(const Screen& screen);

    int width() const { return m_width; }
    int height() const { return m_height; }
    IDirectFBSurface* surface() const { return m_surface; }

    // Puts the engine's picture on the screen, which has the window's size; rows that did not
    // change are left alone. pixels: 32 bits each, 0xXXRRGGBB. Returns whether any row changed.
    bool show(const uint8_t* pixels, int bytesPerRow);

    // Moves the page up by so many rows. What comes into sight below it goes on as its last row.
    void moveUp(int rows);
    int movedUp() const { return m_up; }

private:
    void present(int firstRow, int lastRow);

    int m_width = 0;
    int m_height = 0;
    int m_up = 0;
    IDirectFBSurface* m_surface = nullptr;
    std::vector<uint32_t> m_page; // the engine's last picture
};

} // namespace host

#endif
