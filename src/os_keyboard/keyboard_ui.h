// The renderer of keys.
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

/// Paints keys on a surface. It knows no layout and remembers no focus: its caller says what to
/// paint and when, on one thread.
///
/// Every call is logged. A DirectFB call that fails while painting is named on standard error and
/// ends the process through DirectFBErrorFatal.
class KeyBoardUI
{
public:
    /// Clears the surface to the background at once.
    /// \param dfb lent for the renderer's whole life.
    /// \param surface lent as well; must hold every key that is painted.
    KeyBoardUI(IDirectFB* dfb, IDirectFBSurface* surface);

    /// Releases the font. The surface is left as it is and stays its owner's.
    ~KeyBoardUI();
    KeyBoardUI(const KeyBoardUI&) = delete;
    KeyBoardUI& operator=(const KeyBoardUI&) = delete;

    /// Takes the keys to paint from now on and loads the font; paints nothing.
    /// \param buttons lent, never null: the list stays alive and in place, and may change between
    /// draws.
    /// \param fontSize height in pixels.
    /// \param fontPath a TrueType file, or null for none.
    /// \return false and an error line, with the keys taken all the same, when there is no such
    /// file. Without a font draw and show paint nothing. A font loaded before stays in memory.
    bool setLayoutData(std::vector<Button_t>* buttons, int fontSize, const char* fontPath);

    /// Fills the surface with one colour.
    /// \param argb 0xAARRGGBB.
    /// \param flip shows it and fills the surface's other buffer too.
    void clear(unsigned int argb, bool flip);

    /// Repaints every key, the locked ones sunken, without a focus frame.
    /// \param flip makes the result visible, with the screen's next refresh.
    void draw(bool flip);

    /// Paints the keyboard unless it is painted already.
    void show();

    /// Makes the surface transparent unless it is so.
    void hide();

    /// Repaints everything with a frame around key and makes it visible.
    void setfocus(Button_t& key);

    /// Paints one key going down. Nothing else is repainted, and only the key's own area is made
    /// visible. There must be a font.
    void press(Button_t key);

    /// Paints one key that came up again, with the focus frame; otherwise as press.
    void pressed(Button_t key);

    /// Copies the keys to be shown as locked, repaints everything without a focus frame and makes
    /// it visible.
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
