#ifndef KEYBOARD_UI_H
#define KEYBOARD_UI_H

#include <string>
#include <vector>

#include <directfb.h>

#include "keyboard_types.h"

namespace velmora
{
namespace browser
{
namespace vkb
{

struct KeyLook;

// Paints keys on a surface. It knows no layout and remembers no focus: its caller says what to
// paint and when, on one thread. A DirectFB call that fails while painting ends the process.
class KeyBoardUI
{
public:
    // Lends dfb and surface for the renderer's whole life; the surface is cleared to the
    // background at once. The surface must hold every key that is painted.
    KeyBoardUI(IDirectFB* dfb, IDirectFBSurface* surface);
    ~KeyBoardUI();
    KeyBoardUI(const KeyBoardUI&) = delete;
    KeyBoardUI& operator=(const KeyBoardUI&) = delete;

    // Takes the keys to paint from now on and loads the font. buttons is lent: the list stays
    // alive and in place, and may change between draws. fontSize is in pixels; fontPath names a
    // TrueType file. Returns false, with the keys taken all the same, when there is no such
    // file; without a font, draw and show paint nothing.
    bool setLayoutData(std::vector<Button_t>* buttons, int fontSize, const char* fontPath);

    // Fills the surface with one colour, 0xAARRGGBB; with flip, both of its buffers.
    void clear(unsigned int argb, bool flip);

    // Repaints every key, the locked ones sunken; with flip, makes the result visible.
    void draw(bool flip);

    // Paints the keyboard unless it is painted already; makes it transparent unless it is so.
    void show();
    void hide();

    // Repaints everything with a frame around key.
    void setfocus(Button_t& key);

    // Paints one key going down and coming up again with the frame around it. Nothing else is
    // repainted, and only the key's own area is made visible.
    void press(Button_t key);
    void pressed(Button_t key);

    // Copies the keys to be shown as locked and repaints everything, without a focus frame.
    void setLocked(std::vector<Button_t>& locked);

private:
    void fill(unsigned int argb);
    void setColour(unsigned int argb, const char* text);
    void drawElement(const Button_t& key, const KeyLook& look);
    void drawLines(const Rect_t& rect, const KeyLook& look);
    void flipWhole();
    void flipKey(const Rect_t& rect);

    IDirectFB* m_dfb;
    IDirectFBSurface* m_surface;
    int m_win_width;
    int m_win_height;
    int m_font_size;       // pixels, asked for
    int m_font_height;     // pixels, as the font reports it
    IDirectFBFont* m_font; // owned; null while no font is loaded
    std::vector<Button_t>* m_buttons;
    std::vector<Button_t> m_locked_buttons;
    bool m_is_drawn;
};

} // namespace vkb
} // namespace browser
} // namespace velmora

#endif
