// Places on the symbol faces what the default faces lack.
#include "symbol_set.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "catalogue.h"
#include "language.h"
#include "positions.h"
#include "text.h"
#include "typing.h"

namespace layouts
{
namespace
{

bool isLetterKey(const Position& position)
{
    return position.keyCode >= 'A' && position.keyCode <= 'Z' && position.role == Role::Printing;
}

class SymbolSet
{
public:
    SymbolSet(const Catalogue& catalogue, const KeySet& defaults)
        : m_cells(catalogue.cells), m_defaults(defaults)
    {
        placeUsKeyboard();
    }

    // Places what the default set cannot type of the letters. Returns false when there are
    // too many.
    bool placeLetters(const std::vector<KeyTexts>& letters)
    {
        // Each letter on the key of its base letter first, before others take that place.
        std::vector<KeyTexts> others;
        for (const KeyTexts& letter : letters) {
            const size_t home = homeOf(letter.plain);
            if (m_keys.has(letter.plain) && (letter.shifted.empty() || m_keys.has(letter.shifted)))
                continue;
            if (m_keys.isEmpty(home))
                place(home, letter);
            else
                others.push_back(letter);
        }
        return std::all_of(others.begin(), others.end(),
                           [&](const KeyTexts& letter) { return placeNear(letter); });
    }

    // Letters that the language does not need, while there is room among the letter keys.
    void placeForeignLetters(const std::vector<KeyTexts>& letters)
    {
        for (const KeyTexts& letter : letters) {
            const size_t home = homeOf(letter.plain);
            if (isLetterKey(positions()[home]) && m_keys.isEmpty(home) && !m_keys.has(letter.plain))
                place(home, letter);
        }
        for (const KeyTexts& letter : letters) {
            const size_t near = nearest(homeOf(letter.plain), [&](size_t i) {
                return isLetterKey(positions()[i]) && m_keys.isEmpty(i);
            });
            if (near < m_keys.size() && !m_keys.has(letter.plain))
                place(near, letter);
        }
    }

    const KeySet& finished()
    {
        m_keys.fillWithSigns();
        m_keys.fillForTheWeb();
        return m_keys;
    }

private:
    void placeUsKeyboard()
    {
        const Speller defaults(m_defaults.texts());
        const bool needsLatin = !defaults.canType("abcdefghijklmnopqrstuvwxyz") ||
                                !defaults.canType("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
        for (size_t i = 0; i < m_keys.size(); ++i) {
            const Position& position = positions()[i];
            const KeyTexts texts = {position.text, position.shiftedText};
            if (position.role != Role::Printing || texts.plain.empty() ||
                (isLetterKey(position) && !needsLatin))
                continue;
            m_keys.set(i, texts);
        }
    }

    // The key that types the letter's base on the default face; without one, the first of the
    // bottom row.
    size_t homeOf(const std::string& letter) const
    {
        const std::string base = fromCodePoint(codePoints(nfd(letter)).front());
        for (size_t i = 0; i < m_keys.size(); ++i)
            if (KeySet::isFree(i) && m_defaults.at(i).plain == base)
                return i;
        return fillOrder().front();
    }

    template <typename Accept> size_t nearest(size_t home, Accept accept) const
    {
        constexpr int kRowAway = 10; // in columns: the same row is nearer than the next
        const auto distance = [&](size_t i) {
            const Cell& from = m_cells[home];
            const Cell& to = m_cells[i];
            return std::abs(2 * from.column + from.width - 2 * to.column - to.width) +
                   2 * kRowAway * std::abs(from.row - to.row);
        };
        size_t best = m_keys.size();
        for (size_t i = 0; i < m_keys.size(); ++i)
            if (accept(i) && (best == m_keys.size() || distance(i) < distance(best)))
                best = i;
        return best;
    }

    bool placeNear(const KeyTexts& letter)
    {
        return letter.shifted.empty() ? placeOne(letter.plain) : placePair(letter);
    }

    // Two letters can have one upper case between them; it stands once.
    void place(size_t i, const KeyTexts& letter)
    {
        m_keys.setPlain(i, letter.plain);
        if (!m_keys.hasShifted(letter.shifted))
            m_keys.setShifted(i, letter.shifted);
    }

    bool placePair(const KeyTexts& letter)
    {
        const size_t home = homeOf(letter.plain);
        size_t near = nearest(home, [&](size_t i) { return m_keys.isEmpty(i); });
        if (near == m_keys.size())
            near = nearest(home, [&](size_t i) { return isSpare(i, false) && isSpare(i, true); });
        if (near == m_keys.size())
            return false;
        m_keys.set(near, {});
        place(near, letter);
        return true;
    }

    // A letter without upper case takes one face of a key: the free one of two before a free
    // key, a free key before what the default set types, too.
    bool placeOne(const std::string& letter)
    {
        const size_t home = homeOf(letter);
        size_t place = nearest(home, [&](size_t i) {
            return !m_keys.at(i).plain.empty() && m_keys.at(i).shifted.empty();
        });
        bool shifted = place < m_keys.size();
        if (place == m_keys.size())
            place = nearest(home, [&](size_t i) { return m_keys.isEmpty(i); });
        for (const bool face : {false, true}) {
            if (place < m_keys.size())
                break;
            shifted = face;
            place = nearest(home, [&](size_t i) { return isSpare(i, face); });
        }
        if (place == m_keys.size())
            return false;
        if (shifted)
            m_keys.setShifted(place, letter);
        else
            m_keys.setPlain(place, letter);
        return true;
    }

    // Whether the face of the key shows a character of the US keyboard that the default set
    // has, too.
    bool isSpare(size_t i, bool shifted) const
    {
        const std::string& text = shifted ? m_keys.at(i).shifted : m_keys.at(i).plain;
        const Position& position = positions()[i];
        return position.role == Role::Printing && !text.empty() && m_defaults.has(text) &&
               text == (shifted ? position.shiftedText : position.text);
    }

    const std::vector<Cell>& m_cells;
    const KeySet& m_defaults;
    KeySet m_keys;
};

// The single characters that the letters consist of and that the keys cannot type, each with
// its upper case.
std::vector<KeyTexts> missingCharacters(const std::vector<std::string>& letters,
                                        const Language& language, const Speller& keys)
{
    std::vector<KeyTexts> missing;
    std::set<std::string> seen;
    for (const std::string& letter : letters) {
        for (const char32_t c : codePoints(letter)) {
            const KeyTexts texts = {fromCodePoint(c),
                                    upperCase(fromCodePoint(c), language.icuName)};
            if (!seen.insert(texts.plain).second)
                continue;
            const bool upperMissing = !texts.shifted.empty() && !keys.canType(texts.shifted);
            if (!keys.canType(texts.plain) || upperMissing)
                missing.push_back(texts);
        }
    }
    return missing;
}

// The letters that are typed as base letter and mark.
std::vector<KeyTexts> composedLetters(const std::vector<std::string>& letters,
                                      const Language& language, const Speller& keys)
{
    std::vector<KeyTexts> composed;
    for (const std::string& letter : letters)
        if (singleCodePoint(letter) && keys.spell(letter).size() > 1)
            composed.push_back({letter, upperCase(letter, language.icuName)});
    return composed;
}

std::vector<std::string> decomposed(const std::vector<std::string>& letters)
{
    std::vector<std::string> result;
    result.reserve(letters.size());
    for (const std::string& letter : letters)
        result.push_back(nfd(letter));
    return result;
}

} // namespace

KeySet symbolSet(const Language& language, const Catalogue& catalogue, const KeySet& defaults)
{
    const std::vector<std::string> letters = mainLetters(language);
    const Speller typed(defaults.texts());
    SymbolSet whole(catalogue, defaults);
    if (whole.placeLetters(missingCharacters(letters, language, typed))) {
        // Letters that take two keys so far, then those of names and foreign words.
        whole.placeForeignLetters(composedLetters(letters, language, typed));
        whole.placeForeignLetters(missingCharacters(auxiliaryLetters(language), language, typed));
        return whole.finished();
    }
    // More letters with marks than keys: the marks get keys of their own.
    SymbolSet marks(catalogue, defaults);
    if (marks.placeLetters(missingCharacters(decomposed(letters), language, typed)))
        return marks.finished();
    throw std::runtime_error(language.name + ": its letters are too many for four faces");
}

} // namespace layouts
