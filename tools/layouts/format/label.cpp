// What stands on a key instead of a character that cannot be seen alone.
#include "label.h"

#include "text.h"

namespace layouts
{
namespace
{

struct Name {
    int32_t character;
    const char* label;
};

const Name kNames[] = {{0x200B, "ZSP"}, {0x200C, "ZNJ"}, {0x200D, "ZWJ"}};

} // namespace

std::string labelFor(const std::string& typed)
{
    const int32_t character = singleCodePoint(typed);
    for (const Name& name : kNames)
        if (character == name.character)
            return name.label;
    return typed;
}

} // namespace layouts
