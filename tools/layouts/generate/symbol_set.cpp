// Places on the symbol faces what the default faces lack.
#include "symbol_set.h"

#include <cstdlib>
#include <limits>
#include <stdexcept>

#include "base_letters.h"
#include "catalogue.h"
#include "positions.h"
#include "repertoire.h"
#include "text.h"
#include "typing.h"

namespace layouts
{
namespace
{

const char kEuro[] = "€";

class SymbolSet
{
public:
    SymbolSet(const XkbKeyboard& keyboard, const Repertoire& repertoire,
              const std::vector<Cell>& cells, const KeySet& defaults)
        : m_keyboard(keyboard), m_repertoire(repertoire), m_cells(cells), m_defaults(defaults)
    {
    }

    // What the language's own keyboard has on AltGr stays on its key, as far as it is wanted.
    template <typename Wanted> void placeAltGr(Wanted isWanted)
    {
        for (size_t i = 0; i < m_keys.size(); ++i) {
            const auto key = m_keyboard.find(positions()[i].xkbName);
            if (key == m_keyboard.end() || !KeySet::isFree(i))
                continue;
            for (const bool shifted : {false, true}) {
                const std::string& text =
                    shifted ? key->second.altGr.shifted : key->second.altGr.plain;
                if (isMissing(text) && isSign(text) && isWanted(text) && isEmpty(i, shifted))
                    put(i, shifted, text);
            }
        }
    }

    // On the keys where a US keyboard has them. One whose key is taken stands as near as there is
    // room, with its upper case.
    void placeLatinLetters()
    {
        for (size_t i = 0; i < m_keys.size(); ++i) {
            if (!isLetterKey(i) || !isEmpty(i, false))
                continue;
            for (const bool shifted : {false, true})
                if (isMissing(usText(i, shifted)) && isEmpty(i, shifted))
                    put(i, shifted, usText(i, shifted));
        }
        for (size_t i = 0; i < m_keys.size(); ++i)
            if (isLetterKey(i))
                place({usText(i, false), usText(i, true)}, i);
    }

    // Each on the key of its base letter before others take that place. Returns false when there
    // are too many.
    bool placeLetters(const std::vector<KeyTexts>& letters)
    {
        for (const KeyTexts& letter : letters) {
            const size_t home = homeOf(letter.plain);
            if (isMissing(letter.plain) && m_keys.isEmpty(home))
                place(letter, home);
        }
        bool all = true;
        for (const KeyTexts& letter : letters)
            all = place(letter, homeOf(letter.plain)) && all;
        return all;
    }

    // What the language does not need, while there is room: on letter keys, then on those of signs.
    void placeForeignLetters(const std::vector<KeyTexts>& letters)
    {
        for (const KeyTexts& letter : letters) {
            const size_t home = homeOf(letter.plain);
            if (isMissing(letter.plain) && isLetterKey(home) && m_keys.isEmpty(home))
                m_keys.set(home, onlyMissing(letter));
        }
        for (const KeyTexts& letter : letters) {
            const size_t near = nearest(homeOf(letter.plain), [&](size_t i) {
                return isForLetter(i, letter.plain) && m_keys.isEmpty(i);
            });
            if (near < m_keys.size() && isMissing(letter.plain))
                m_keys.set(near, onlyMissing(letter));
        }
    }

    // On the keys where a US keyboard has 0 to 9, as a key has one code for all digits.
    void placeDigits()
    {
        std::vector<std::string> ascii(10);
        for (size_t digit = 0; digit < ascii.size(); ++digit)
            ascii[digit] = std::to_string(digit);
        for (const auto& digits : {ascii, m_repertoire.digits(), m_repertoire.nativeDigits()})
            for (const std::string& digit : digits)
                if (isMissing(digit))
                    placeOne(digit, digitPosition(digit), false);
    }

    // Returns false when there is no room for all.
    bool placeAscii()
    {
        for (size_t i = 0; i < m_keys.size(); ++i)
            for (const bool shifted : {false, true}) {
                const std::string text = usText(i, shifted);
                if (!text.empty() && isMissing(text) && isEmpty(i, shifted))
                    put(i, shifted, text);
            }
        bool all = true;
        for (size_t i = 0; i < m_keys.size(); ++i)
            for (const bool shifted : {false, true}) {
                const std::string text = usText(i, shifted);
                if (!text.empty() && isMissing(text))
                    all = placeOne(text, i, shifted) && all;
            }
        return all;
    }

    void placePunctuation()
    {
        for (const std::string& mark : m_repertoire.punctuation())
            if (isMissing(mark) && singleCodePoint(mark))
                place({mark, ""}, middle());
    }

    // They have neither base nor upper case, so any face will do.
    void placeJoiners(const std::vector<KeyTexts>& letters)
    {
        for (const KeyTexts& letter : letters)
            if (isInvisible(singleCodePoint(letter.plain)))
                place({letter.plain, ""}, middle());
    }

    // The rest is as on a US keyboard.
    KeySet finished()
    {
        for (size_t i = 0; i < m_keys.size(); ++i)
            for (const bool shifted : {false, true}) {
                const std::string text = usText(i, shifted);
                const bool isThere = shifted ? m_keys.hasShifted(text) : m_keys.hasPlain(text);
                if (!text.empty() && !isLetterKey(i) && !isThere && isEmpty(i, shifted))
                    put(i, shifted, text);
            }
        m_keys.fillWithSigns();
        m_keys.fillForTheWeb({});
        return m_keys;
    }

    bool needsLatin() const { return isMissing("a") || isMissing("z"); }

private:
    bool isMissing(const std::string& text) const
    {
        return !text.empty() && !m_defaults.has(text) && !m_keys.has(text);
    }

    // Letters may take the keys of signs, but not of digits; marks only those of letters.
    static bool isForLetter(size_t i, const std::string& text)
    {
        const int32_t code = positions()[i].keyCode;
        const bool isDigitKey = code >= '0' && code <= '9';
        return isMark(text) ? isLetterKey(i) : positions()[i].role == Role::Printing && !isDigitKey;
    }

    bool isEmpty(size_t i, bool shifted) const
    {
        return KeySet::isFree(i) && textAt(i, shifted).empty();
    }

    const std::string& textAt(size_t i, bool shifted) const
    {
        return shifted ? m_keys.at(i).shifted : m_keys.at(i).plain;
    }

    static std::string usText(size_t i, bool shifted)
    {
        const Position& position = positions()[i];
        if (position.role != Role::Printing)
            return std::string();
        return shifted ? position.shiftedText : position.text;
    }

    void put(size_t i, bool shifted, const std::string& text)
    {
        if (shifted)
            m_keys.setShifted(i, text);
        else
            m_keys.setPlain(i, text);
    }

    // The key that types the letter's base; without one, the middle of the keyboard.
    size_t homeOf(const std::string& letter) const
    {
        const std::string base = baseLetter(letter);
        for (const bool shifted : {false, true})
            for (size_t i = 0; i < m_keys.size(); ++i)
                if (KeySet::isFree(i) &&
                    (shifted ? m_defaults.at(i).shifted : m_defaults.at(i).plain) == base)
                    return i;
        return middle();
    }

    static size_t middle() { return positionOf("AC06"); }

    double distance(size_t home, size_t i) const
    {
        constexpr int kRowAway = 10; // in columns: the same row is nearer than the next
        const Cell& from = m_cells[home];
        const Cell& to = m_cells[i];
        // A row of digits stays one while there is room elsewhere.
        constexpr int kDigitKey = 40;
        const int32_t code = positions()[i].keyCode;
        const bool isDigitKey = i != home && code >= '0' && code <= '9';
        return (isDigitKey ? kDigitKey : 0) +
               std::abs(from.column + from.width / 2.0 - to.column - to.width / 2.0) +
               kRowAway * std::abs(from.row - to.row);
    }

    template <typename Accept> size_t nearest(size_t home, Accept accept) const
    {
        size_t best = m_keys.size();
        for (size_t i = 0; i < m_keys.size(); ++i)
            if (accept(i) && (best == m_keys.size() || distance(home, i) < distance(home, best)))
                best = i;
        return best;
    }

    // Two letters can have one upper case between them; it stands once.
    KeyTexts onlyMissing(const KeyTexts& letter) const
    {
        return {letter.plain, isMissing(letter.shifted) ? letter.shifted : std::string()};
    }

    // A letter with its upper case, where the layout lacks them. Returns whether both are there.
    bool place(const KeyTexts& letter, size_t home)
    {
        const bool needsPlain = isMissing(letter.plain);
        const bool needsShifted = isMissing(letter.shifted);
        if (needsPlain && needsShifted) {
            const size_t near = nearest(home, [&](size_t i) { return m_keys.isEmpty(i); });
            if (near < m_keys.size()) {
                m_keys.set(near, letter);
                return true;
            }
        }
        const bool plain = !needsPlain || placeOne(letter.plain, home, false);
        return (!needsShifted || placeOne(letter.shifted, homeOfUpper(letter, home), true)) &&
               plain;
    }

    // The upper case goes to the key of the lower case.
    size_t homeOfUpper(const KeyTexts& letter, size_t home) const
    {
        for (size_t i = 0; i < m_keys.size(); ++i)
            if (KeySet::isFree(i) &&
                (m_keys.at(i).plain == letter.plain || m_defaults.at(i).plain == letter.plain))
                return i;
        return home;
    }

    // On the nearest key, and rather there on the other face than far away.
    bool placeOne(const std::string& text, size_t home, bool shifted)
    {
        constexpr double kOtherFace = 4; // in columns
        double best = std::numeric_limits<double>::max();
        size_t key = 0;
        bool face = shifted;
        for (size_t i = 0; i < m_keys.size(); ++i)
            for (const bool tried : {shifted, !shifted}) {
                const double cost = distance(home, i) + (tried == shifted ? 0 : kOtherFace);
                if (isEmpty(i, tried) && cost < best) {
                    best = cost;
                    key = i;
                    face = tried;
                }
            }
        if (best == std::numeric_limits<double>::max())
            return false;
        put(key, face, text);
        return true;
    }

    const XkbKeyboard& m_keyboard;
    const Repertoire& m_repertoire;
    const std::vector<Cell>& m_cells;
    const KeySet& m_defaults;
    KeySet m_keys;
};

// The characters that the keys cannot type, with their upper case.
std::vector<KeyTexts> missing(const std::vector<KeyTexts>& characters, const Speller& keys)
{
    std::vector<KeyTexts> result;
    for (const KeyTexts& texts : characters)
        if (!keys.canType(texts.plain) || (!texts.shifted.empty() && !keys.canType(texts.shifted)))
            result.push_back(texts);
    return result;
}

// The letters that are typed as base letter and mark.
std::vector<KeyTexts> composed(const std::vector<KeyTexts>& letters, const Speller& keys)
{
    std::vector<KeyTexts> result;
    for (const KeyTexts& letter : letters)
        if (singleCodePoint(letter.plain) && keys.spell(letter.plain).size() > 1)
            result.push_back(letter);
    return result;
}

// Upper case goes with its lower case.
std::vector<KeyTexts> ofText(const Repertoire& repertoire)
{
    std::vector<KeyTexts> result;
    for (const std::string& character : repertoire.byUse()) {
        const KeyTexts texts = repertoire.withUpperCase(repertoire.inLowerCase(character));
        result.push_back(texts);
        if (texts.plain != character && texts.shifted != character)
            result.push_back({character, ""});
    }
    return result;
}

} // namespace

KeySet symbolSet(const XkbKeyboard& keyboard, const Repertoire& repertoire,
                 const std::vector<Cell>& cells, const KeySet& defaults)
{
    const Speller typed(defaults.texts());
    // First with each letter as one; then, where these are too many, with marks of their own.
    for (const bool decomposed : {false, true}) {
        SymbolSet set(keyboard, repertoire, cells, defaults);
        set.placeAltGr([&](const std::string& text) { return repertoire.isLetter(text); });
        set.placeDigits();
        if (set.needsLatin())
            set.placeLatinLetters();
        set.placeAltGr(
            [](const std::string& text) { return singleCodePoint(text) < 0x80 || text == kEuro; });
        if (!set.placeLetters(
                missing(repertoire.characters(repertoire.letters(), decomposed), typed)))
            continue;
        set.placeAltGr([&](const std::string& text) { return repertoire.uses(text); });
        if (!set.placeAscii())
            continue;
        set.placeLetters(missing(ofText(repertoire), typed));
        set.placeForeignLetters(composed(repertoire.characters(repertoire.letters()), typed));
        set.placeForeignLetters(missing(repertoire.characters(repertoire.foreignLetters()), typed));
        set.placePunctuation();
        set.placeJoiners(repertoire.characters(repertoire.foreignLetters()));
        set.placeAltGr([](const std::string&) { return true; });
        return set.finished();
    }
    throw std::runtime_error(repertoire.name() + ": its letters are too many for four faces");
}

} // namespace layouts
