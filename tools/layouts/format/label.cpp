// What stands on a key instead of a character that cannot be seen alone.
#include "label.h"

#include <algorithm>
#include <iterator>

#include "text.h"

namespace layouts
{
namespace
{

struct Name {
    int32_t character;
    const char* label;
};

// Vowel signs that stand before the consonant that they follow in the text.
struct Range {
    int32_t first;
    int32_t last;
};

const Range kBefore[] = {
    {0x093F, 0x093F}, {0x094E, 0x094E}, {0x09BF, 0x09BF}, {0x09C7, 0x09C8}, {0x0A3F, 0x0A3F},
    {0x0ABF, 0x0ABF}, {0x0B47, 0x0B47}, {0x0BC6, 0x0BC8}, {0x0D46, 0x0D48}, {0x0DD9, 0x0DDB},
    {0x0F3F, 0x0F3F}, {0x1031, 0x1031}, {0x17C1, 0x17C3}, {0xAAEB, 0xAAEB}, {0xAAEE, 0xAAEE},
};

const char kDottedCircle[] = "\u25CC";

bool standsBefore(int32_t mark)
{
    return std::any_of(std::begin(kBefore), std::end(kBefore), [&](const Range& range) {
        return mark >= range.first && mark <= range.last;
    });
}

// No picture, or that of the hyphen of ASCII.
const Name kNames[] = {
    {0x200B, "ZSP"}, {0x200C, "ZNJ"}, {0x200D, "ZWJ"}, {0x2010, "HY"}, {0x2011, "NH"},
};

} // namespace

std::string labelFor(const std::string& typed)
{
    const int32_t character = singleCodePoint(typed);
    for (const Name& name : kNames)
        if (character == name.character)
            return name.label;
    if (!isMark(typed))
        return typed;
    return standsBefore(character) ? typed + kDottedCircle : kDottedCircle + typed;
}

} // namespace layouts
