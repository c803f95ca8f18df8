// Makes a key map from a computer keyboard and an alphabet.
#include "generator.h"

#include <stdexcept>

#include "catalogue.h"
#include "key_set.h"
#include "language.h"
#include "positions.h"
#include "symbol_set.h"
#include "text.h"
#include "xkb_keyboard.h"

namespace layouts
{
namespace
{

void placeXkbKey(KeySet& keys, size_t i, KeyTexts texts, const Language& language)
{
    if (texts.shifted.empty())
        texts.shifted = upperCase(texts.plain, language.icuName);
    // A character that the face has already is one too many; the place is worth more.
    if (!keys.hasPlain(texts.plain))
        keys.setPlain(i, texts.plain);
    if (!keys.hasShifted(texts.shifted))
        keys.setShifted(i, texts.shifted);
}

KeySet defaultSet(const Language& language)
{
    KeySet keys;
    const auto keyboard =
        readXkbKeyboard(language.xkbLayout, language.xkbVariant, language.xkbFolder);
    size_t extra = 0;
    for (size_t i = 0; i < keys.size(); ++i) {
        const std::string name = positions()[i].xkbName;
        if (name == "LSGT")
            extra = i;
        else if (!name.empty())
            placeXkbKey(keys, i, keyboard.at(name), language);
    }
    // Many keyboards repeat on this key what they type elsewhere, too.
    const KeyTexts& texts = keyboard.at("LSGT");
    if (!keys.has(texts.plain) || !keys.has(texts.shifted))
        placeXkbKey(keys, extra, texts, language);
    keys.fillForTheWeb();
    return keys;
}

int32_t keyCodeOf(const Position& position, const std::string& text)
{
    const int32_t character = singleCodePoint(text);
    const int32_t code =
        character > 0x20 && character < 0x7F ? usKeyCode(static_cast<char>(character)) : 0;
    return code ? code : position.keyCode;
}

Legend legendFor(const std::string& text)
{
    const int32_t character = singleCodePoint(text);
    if (!isJoiner(character))
        return {text, character};
    return {character == kJoiner ? "ZWJ" : "ZNJ", character};
}

Key makeKey(const Language& language, const Position& position, const KeyTexts& texts,
            const Neighbours& around)
{
    switch (position.role) {
    case Role::Language:
        return {{language.label, 0}, {language.label, 0}, true, true, 0, around};
    case Role::Special:
    case Role::Fixed:
        return {{position.text, position.character},
                {position.shiftedText, position.character},
                position.role == Role::Special,
                false,
                position.keyCode,
                around};
    default:
        return {legendFor(texts.plain),
                legendFor(texts.shifted),
                false,
                false,
                keyCodeOf(position, texts.plain),
                around};
    }
}

std::vector<Key> makeKeys(const Language& language, const KeySet& keys,
                          const std::vector<Neighbours>& around)
{
    std::vector<Key> result;
    for (size_t i = 0; i < keys.size(); ++i)
        result.push_back(makeKey(language, positions()[i], keys.at(i), around[i]));
    return result;
}

} // namespace

KeyMap generate(const Language& language, const Catalogue& catalogue)
{
    if (catalogue.cells.size() != positions().size())
        throw std::runtime_error("the catalogue's grid has " +
                                 std::to_string(catalogue.cells.size()) + " keys, expected " +
                                 std::to_string(positions().size()));
    const KeySet defaults = defaultSet(language);
    const KeySet symbols = symbolSet(language, catalogue, defaults);
    const std::vector<Neighbours> around = neighbours(catalogue.cells);
    return {makeKeys(language, defaults, around), makeKeys(language, symbols, around)};
}

} // namespace layouts
