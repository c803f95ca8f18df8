#include "generator.h"

#include <algorithm>
#include <cstdlib>
#include <set>
#include <stdexcept>

#include "positions.h"
#include "text.h"
#include "typing.h"
#include "xkb_keyboard.h"

namespace layouts
{
namespace
{

// What goes on keys that the language leaves free, the most wanted first. Web addresses are
// what people type here.
const char* const kWebPlain[] = {"@", "/",  "_",  ":", "?", "!", "&", "#", "-", ".", ",",
                                 "'", "\"", "=",  "+", "*", "%", "(", ")", ";", "$", "~",
                                 "^", "|",  "\\", "<", ">", "[", "]", "{", "}", "`"};
const char* const kWebShifted[] = {"€", "£", "$", "¥", "§", "°", "«", "»",
                                   "•", "…", "–", "—", "¿", "¡", "©", "®"};
const char* const kSymbols[] = {"€", "£", "¥", "¢", "§", "°", "«", "»", "¿", "¡", "©", "®",
                                "±", "×", "÷", "²", "³", "½", "¼", "¾", "µ", "¶", "·", "¹",
                                "ª", "º", "¬", "¦", "¤", "•", "…", "–", "—", "“", "”", "„",
                                "‘", "’", "‚", "‹", "›", "†", "‡", "™", "‰"};

struct Pair {
    std::string plain;
    std::string shifted;
};

// One key set while it is being made; an empty text is still free.
class KeySet
{
public:
    KeySet() : m_keys(positions().size())
    {
        for (size_t i = 0; i < m_keys.size(); ++i) {
            const Position& position = positions()[i];
            if (!isFree(i))
                set(i, {position.text, position.shiftedText});
        }
    }

    // Whether the language may decide what stands at the position.
    static bool isFree(size_t i)
    {
        const Role role = positions()[i].role;
        return role == Role::Printing || role == Role::Web;
    }

    const Pair& at(size_t i) const { return m_keys[i]; }
    size_t size() const { return m_keys.size(); }
    bool hasPlain(const std::string& text) const { return m_plain.count(text) != 0; }
    bool hasShifted(const std::string& text) const { return m_shifted.count(text) != 0; }
    bool has(const std::string& text) const { return hasPlain(text) || hasShifted(text); }
    bool isEmpty(size_t i) const
    {
        return isFree(i) && m_keys[i].plain.empty() && m_keys[i].shifted.empty();
    }

    void setPlain(size_t i, const std::string& text) { change(m_keys[i].plain, m_plain, text); }
    void setShifted(size_t i, const std::string& text)
    {
        change(m_keys[i].shifted, m_shifted, text);
    }
    void set(size_t i, const Pair& pair)
    {
        setPlain(i, pair.plain);
        setShifted(i, pair.shifted);
    }

    std::set<std::string> texts() const
    {
        std::set<std::string> all = m_plain;
        all.insert(m_shifted.begin(), m_shifted.end());
        return all;
    }

private:
    static void change(std::string& key, std::set<std::string>& face, const std::string& text)
    {
        face.erase(key);
        key = text;
        if (!text.empty())
            face.insert(text);
    }

    std::vector<Pair> m_keys;
    std::set<std::string> m_plain; // the texts of each face
    std::set<std::string> m_shifted;
};

template <size_t N>
std::string firstMissing(const char* const (&wanted)[N],
                         bool (KeySet::*has)(const std::string&) const, const KeySet& keys)
{
    for (const char* text : wanted)
        if (!(keys.*has)(text))
            return text;
    return std::string();
}

void fillPlain(KeySet& keys, size_t i)
{
    std::string text = firstMissing(kWebPlain, &KeySet::hasPlain, keys);
    if (text.empty())
        text = firstMissing(kSymbols, &KeySet::hasPlain, keys);
    keys.setPlain(i, text);
}

void fillShifted(KeySet& keys, size_t i)
{
    std::string text = firstMissing(kWebShifted, &KeySet::hasShifted, keys);
    if (text.empty())
        text = firstMissing(kWebPlain, &KeySet::hasShifted, keys);
    if (text.empty())
        text = firstMissing(kSymbols, &KeySet::hasShifted, keys);
    keys.setShifted(i, text);
}

// The order in which free keys are filled: the bottom row's sides are the easiest to reach.
std::vector<size_t> fillOrder()
{
    std::vector<size_t> web;
    std::vector<size_t> printing;
    for (size_t i = 0; i < positions().size(); ++i) {
        if (positions()[i].role == Role::Web)
            web.push_back(i);
        else if (positions()[i].role == Role::Printing)
            printing.push_back(i);
    }
    // The lone one at the end of the letters comes after those of the bottom row.
    std::rotate(web.begin(), web.begin() + 1, web.end());
    web.insert(web.end(), printing.begin(), printing.end());
    return web;
}

void fill(KeySet& keys)
{
    for (const size_t i : fillOrder()) {
        if (keys.at(i).plain.empty())
            fillPlain(keys, i);
        if (keys.at(i).shifted.empty())
            fillShifted(keys, i);
    }
}

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
    const auto keyboard = readXkbKeyboard(language.xkbLayout, language.xkbVariant);
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
    fill(keys);
    return keys;
}

// What the symbol set types like a US keyboard: everything that is no letter, and for a
// language that is not written in Latin letters also these.
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
    bool placeLetters(const std::vector<Pair>& letters)
    {
        // Each letter on the key of its base letter first, before others take that place.
        std::vector<Pair> others;
        for (const Pair& letter : letters) {
            const size_t home = homeOf(letter.plain);
            if (m_keys.has(letter.plain) && (letter.shifted.empty() || m_keys.has(letter.shifted)))
                continue;
            if (m_keys.isEmpty(home))
                place(home, letter);
            else
                others.push_back(letter);
        }
        return std::all_of(others.begin(), others.end(),
                           [&](const Pair& letter) { return placeNear(letter); });
    }

    // Letters that the language does not need, while there is room among the letter keys.
    void placeForeignLetters(const std::vector<Pair>& letters)
    {
        for (const Pair& letter : letters) {
            const size_t home = homeOf(letter.plain);
            if (isLetterKey(positions()[home]) && m_keys.isEmpty(home) && !m_keys.has(letter.plain))
                place(home, letter);
        }
        for (const Pair& letter : letters) {
            const size_t near = nearest(homeOf(letter.plain), [&](size_t i) {
                return isLetterKey(positions()[i]) && m_keys.isEmpty(i);
            });
            if (near < m_keys.size() && !m_keys.has(letter.plain))
                place(near, letter);
        }
    }

    const KeySet& finished()
    {
        for (const size_t i : fillOrder()) {
            if (m_keys.at(i).plain.empty())
                m_keys.setPlain(i, firstMissing(kSymbols, &KeySet::has, m_keys));
            if (m_keys.at(i).shifted.empty())
                m_keys.setShifted(i, firstMissing(kSymbols, &KeySet::has, m_keys));
        }
        fill(m_keys);
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
            const Pair pair = {position.text, position.shiftedText};
            if (position.role != Role::Printing || pair.plain.empty() ||
                (isLetterKey(position) && !needsLatin))
                continue;
            m_keys.set(i, pair);
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

    bool placeNear(const Pair& letter)
    {
        return letter.shifted.empty() ? placeOne(letter.plain) : placePair(letter);
    }

    // Two letters can have one upper case between them; it stands once.
    void place(size_t i, const Pair& letter)
    {
        m_keys.setPlain(i, letter.plain);
        if (!m_keys.hasShifted(letter.shifted))
            m_keys.setShifted(i, letter.shifted);
    }

    bool placePair(const Pair& letter)
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
std::vector<Pair> missingCharacters(const std::vector<std::string>& letters,
                                    const Language& language, const Speller& keys)
{
    std::vector<Pair> missing;
    std::set<std::string> seen;
    for (const std::string& letter : letters) {
        for (const char32_t c : codePoints(letter)) {
            const Pair pair = {fromCodePoint(c), upperCase(fromCodePoint(c), language.icuName)};
            if (!seen.insert(pair.plain).second)
                continue;
            const bool upperMissing = !pair.shifted.empty() && !keys.canType(pair.shifted);
            if (!keys.canType(pair.plain) || upperMissing)
                missing.push_back(pair);
        }
    }
    return missing;
}

// The letters that are typed as base letter and mark.
std::vector<Pair> composedLetters(const std::vector<std::string>& letters, const Language& language,
                                  const Speller& keys)
{
    std::vector<Pair> composed;
    for (const std::string& letter : letters)
        if (singleCodePoint(letter) && keys.spell(letter).size() > 1)
            composed.push_back({letter, upperCase(letter, language.icuName)});
    return composed;
}

std::vector<std::string> decomposed(const std::vector<std::string>& letters)
{
    std::vector<std::string> result;
    for (const std::string& letter : letters)
        result.push_back(nfd(letter));
    return result;
}

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

Key makeKey(const Language& language, const Position& position, const Pair& pair,
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
        return {legendFor(pair.plain),
                legendFor(pair.shifted),
                false,
                false,
                keyCodeOf(position, pair.plain),
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
