// The reader of layout files.
#ifndef LANGUAGE_PARSER_H
#define LANGUAGE_PARSER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <json/forwards.h>

#include "keyboard_types.h"

namespace velmora
{
namespace browser
{
namespace vkb
{

/// Reads the layout files, and is their only reader: the catalogue (names, key grid) and one key
/// map per layout, at fixed paths.
///
/// Files are read in the call, on the caller's thread. A missing or malformed file leaves empty
/// lists and is no error here: only the line of success is missing from the log. What the JSON
/// library throws for a value that it cannot convert, or for a catalogue without key positions, is
/// not caught.
class LanguageParser
{
public:
    /// Reads the catalogue. The key sets stay empty until the first onLayoutchanged.
    LanguageParser();

    /// Reads the catalogue anew.
    /// \return whether the file was read and is JSON.
    bool ParseLayout();

    /// Reads the current layout's key map into the four key sets, all emptied first.
    /// \return whether the file was read and is JSON.
    bool ParseCurrentLayoutKeyMaps();

    /// The names in the order of the catalogue, read again while there are none.
    /// \return a list that the parser keeps; the caller copies it.
    std::vector<std::string>& getLayoutsName();

    /// Makes name the current layout, whether or not the catalogue lists it, and reads its keys.
    /// The name is logged.
    void onLayoutchanged(std::string& name);

    /// One of the current layout's four key sets, read again while it is empty.
    /// \param name not used: the set is that of the layout last given to onLayoutchanged.
    /// \param shift the shifted faces.
    /// \param alt the symbol set.
    /// \return a list that the parser keeps and fills anew at the next layout; the caller copies
    /// it.
    std::vector<Button_t>& getKeyMap(std::string& name, bool shift, bool alt);

    /// Pixels of the whole keyboard, its outer gaps included; 0 before the catalogue is read.
    int32_t keyboardWidth() const { return m_keyboard_width; }
    int32_t keyboardHeight() const { return m_keyboard_height; } ///< See keyboardWidth.

private:
    void readKeys(Json::Value& keys, std::vector<Button_t>& plain,
                  std::vector<Button_t>& shifted) const;
    Rect_t pixelRect(size_t position) const;

    int32_t m_gap_x; // pixels
    int32_t m_gap_y;
    int32_t m_cell_width;
    int32_t m_cell_height;
    std::vector<Rect_t> m_key_rects; // grid units; entry i places the i-th key of every key map
    std::string m_current_layout;
    std::vector<std::string> m_layout_names;
    std::vector<Button_t> m_default_keys;
    std::vector<Button_t> m_symbol_keys;
    std::vector<Button_t> m_default_shift_keys;
    std::vector<Button_t> m_symbol_shift_keys;
    int32_t m_keyboard_width;
    int32_t m_keyboard_height;
};

} // namespace vkb
} // namespace browser
} // namespace velmora

#endif
