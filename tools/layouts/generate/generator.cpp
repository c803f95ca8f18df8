// Makes a key map from a computer keyboard and an alphabet.
#include "generator.h"

#include <stdexcept>

#include "catalogue.h"
#include "default_set.h"
#include "exceptions.h"
#include "label.h"
#include "language.h"
#include "positions.h"
#include "repertoire.h"
#include "symbol_set.h"
#include "text.h"
#include "xkb_keyboard.h"

namespace layouts
{
namespace
{

// A page that takes only digits looks at the code, whichever face types the digit.
int32_t keyCodeOf(const Position& position, const KeyTexts& texts)
{
    for (const std::string& text : {texts.plain, texts.shifted})
        if (digitValue(text) >= 0)
            return '0' + digitValue(text);
    const int32_t character = singleCodePoint(texts.plain);
    const int32_t code =
        character > 0x20 && character < 0x7F ? usKeyCode(static_cast<char>(character)) : 0;
    return code ? code : position.keyCode;
}

Legend legendFor(const std::string& text)
{
    return {labelFor(text), singleCodePoint(text)};
}

Key makeKey(const Language& language, const Position& position, const KeyTexts& texts,
            const Neighbours& around)
{
    switch (position.role) {
    case Role::Language: {
        const std::string label = inVisualOrder(language.label);
        return {{label, 0}, {label, 0}, true, true, 0, around};
    }
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
                keyCodeOf(position, texts),
                around};
    }
}

// Up and down from the space bar, which lies below six keys, lead where words need it most.
std::vector<Neighbours> linksOf(const Catalogue& catalogue)
{
    std::vector<Neighbours> around = neighbours(catalogue.cells);
    around[spaceBarPosition()].up = static_cast<int>(positionOf("AB06"));
    around[spaceBarPosition()].down = static_cast<int>(positionOf("AE05"));
    return around;
}

std::vector<Key> makeKeys(const Language& language, const KeySet& keys,
                          const std::vector<Neighbours>& around)
{
    std::vector<Key> result;
    for (size_t i = 0; i < keys.size(); ++i)
        result.push_back(makeKey(language, positions()[i], keys.at(i), around[i]));
    return result;
}

KeyMap keyMapOf(const Language& language, const Catalogue& catalogue,
                const std::vector<KeyException>& exceptions)
{
    if (catalogue.cells.size() != positions().size())
        throw std::runtime_error("the catalogue's grid has " +
                                 std::to_string(catalogue.cells.size()) + " keys, expected " +
                                 std::to_string(positions().size()));
    const Repertoire repertoire(language);
    XkbKeyboard keyboard =
        readXkbKeyboard(language.xkbLayout, language.xkbVariant, language.xkbFolder);
    applyExceptions(exceptions, language.name, keyboard);
    const std::vector<Neighbours> around = linksOf(catalogue);
    const KeySet defaults = defaultSet(keyboard, repertoire, around);
    const KeySet symbols = symbolSet(keyboard, repertoire, catalogue.cells, defaults);
    return {makeKeys(language, defaults, around), makeKeys(language, symbols, around)};
}

} // namespace

KeyMap generate(const Language& language, const Catalogue& catalogue,
                const std::vector<KeyException>& exceptions)
{
    try {
        return keyMapOf(language, catalogue, exceptions);
    } catch (const std::runtime_error& error) {
        if (language.place.empty())
            throw;
        throw std::runtime_error(language.place + ": " + error.what());
    }
}

} // namespace layouts
