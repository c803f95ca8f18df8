// Reads computer keyboards from the keyboard database.
#include "xkb_keyboard.h"

#include <memory>
#include <stdexcept>

#include <unicode/uchar.h>
#include <xkbcommon/xkbcommon.h>

#include "positions.h"
#include "text.h"

namespace layouts
{
namespace
{

// Arabic keyboards type a few pairs of letters at once, as one presentation form. The letters
// have keys of their own, and drawn one by one the pair would stand in the wrong order.
bool isPresentationForm(char32_t c)
{
    const UBlockCode block = ublock_getCode(static_cast<UChar32>(c));
    return block == UBLOCK_ARABIC_PRESENTATION_FORMS_A ||
           block == UBLOCK_ARABIC_PRESENTATION_FORMS_B;
}

std::string textOf(xkb_keysym_t symbol)
{
    switch (symbol) {
    case XKB_KEY_dead_grave:
        return "`";
    case XKB_KEY_dead_circumflex:
        return "^";
    case XKB_KEY_dead_tilde:
        return "~";
    default:
        break;
    }
    const uint32_t c = xkb_keysym_to_utf32(symbol);
    const int8_t type = u_charType(static_cast<UChar32>(c));
    const bool isTyped = isInvisible(static_cast<int32_t>(c)) ||
                         (c != 0xA0 && u_isgraph(static_cast<UChar32>(c)) &&
                          type != U_FORMAT_CHAR && type != U_PRIVATE_USE_CHAR);
    return isTyped && !isPresentationForm(c) ? nfc(fromCodePoint(c)) : std::string();
}

std::string textOf(xkb_keymap* keymap, xkb_keycode_t key, xkb_level_index_t level)
{
    const xkb_keysym_t* symbols = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(keymap, key, 0, level, &symbols);
    std::string text;
    for (int i = 0; i < count; ++i)
        text += textOf(symbols[i]);
    return nfc(text);
}

XkbKey readKey(xkb_keymap* keymap, const char* name)
{
    const xkb_keycode_t key = xkb_keymap_key_by_name(keymap, name);
    return {{textOf(keymap, key, 0), textOf(keymap, key, 1)},
            {textOf(keymap, key, 2), textOf(keymap, key, 3)}};
}

} // namespace

const char kSpaceBar[] = "SPCE";

XkbKeyboard readXkbKeyboard(const std::string& layout, const std::string& variant,
                            const std::string& ownFolder)
{
    // Only the packaged database and our own keyboards: what a user has in the home folder or the
    // environment must not change the layouts.
    const std::unique_ptr<xkb_context, void (*)(xkb_context*)> context(
        xkb_context_new(static_cast<xkb_context_flags>(XKB_CONTEXT_NO_DEFAULT_INCLUDES |
                                                       XKB_CONTEXT_NO_ENVIRONMENT_NAMES)),
        xkb_context_unref);
    xkb_context_set_log_level(context.get(), XKB_LOG_LEVEL_CRITICAL);
    xkb_context_include_path_append(context.get(), "/usr/share/X11/xkb");
    if (!ownFolder.empty())
        xkb_context_include_path_append(context.get(), ownFolder.c_str());
    const xkb_rule_names names = {"evdev", "pc105", layout.c_str(), variant.c_str(), ""};
    const std::unique_ptr<xkb_keymap, void (*)(xkb_keymap*)> keymap(
        xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS),
        xkb_keymap_unref);
    if (keymap == nullptr)
        throw std::runtime_error("keyboard " + layout + "(" + variant +
                                 "): not in the keyboard database; see the list in "
                                 "/usr/share/X11/xkb/rules/evdev.lst");

    XkbKeyboard keyboard = {{kSpaceBar, readKey(keymap.get(), kSpaceBar)}};
    for (const Position& position : positions())
        if (position.role == Role::Printing)
            keyboard[position.xkbName] = readKey(keymap.get(), position.xkbName);
    return keyboard;
}

} // namespace layouts
