#ifndef TESTS_KEYBOARD_LAYOUT_SAMPLE_H
#define TESTS_KEYBOARD_LAYOUT_SAMPLE_H

#include <ostream>
#include <string>
#include <tuple>
#include <vector>

#include "keyboard_types.h"
#include "layout_folder.h"
#include "row.h"

namespace velmora::browser::vkb
{

// All that a key holds; keys are compared by it.
inline auto fieldsOf(const Button_t& key)
{
    return std::tie(key.text, key.rect.positionX, key.rect.positionY, key.rect.width,
                    key.rect.height, key.id, key.isSpecial, key.isLanguage, key.keyCode,
                    key.character, key.left_button, key.right_button, key.up_button,
                    key.down_button);
}

inline bool operator==(const Button_t& left, const Button_t& right)
{
    return fieldsOf(left) == fieldsOf(right);
}

inline void PrintTo(const Button_t& key, std::ostream* out)
{
    *out << testing::PrintToString(fieldsOf(key));
}

} // namespace velmora::browser::vkb

// The layouts "English", "German" and "Greek", with a place for every kind of key.
namespace sample
{

// A key's own facts. Its neighbours follow from its place: beside it, and four keys before and
// behind it, whether there is a key or not.
struct Kind {
    const char* text;
    bool isSpecial;
    bool isLanguage;
    int keyCode;
    int character;
    const char* shiftText;
    int shiftCharacter;
};
std::vector<test_support::Key> inRows(const std::vector<Kind>& kinds);

enum Place { Letter, Shift, Alt, Language, ClearAll, Hide, Unknown, Mute };
const int kKeys = 8;
test_support::Catalogue catalogue();
std::vector<test_support::Key> keySet(const std::string& layout, bool alt = false);
void writeLayouts(test_support::LayoutFolder& folder);

// What the keyboard makes of a list of key objects in this catalogue.
std::vector<velmora::browser::vkb::Button_t> buttons(const std::vector<test_support::Key>& keys,
                                                     bool shifted);

// A file that cannot be read as it should.
struct BadFile : test_support::Row {
    const char* text;
};

} // namespace sample

#endif
