// Makes the default faces.
#include "default_set.h"

#include <algorithm>
#include <limits>
#include <string_view>

#include "positions.h"
#include "repertoire.h"
#include "text.h"
#include "travel.h"
#include "typing.h"

namespace layouts
{
namespace
{

// Of 1, how much of a text may need Alt on a computer keyboard that stays as its people know it,
// and how much on one that is changed.
constexpr double kBehindAlt = 0.05;
constexpr double kBehindAltWhenChanged = 0.02;

// Of 1, what makes a character that stands on Shift worth a second place.
constexpr double kFrequent = 0.015;

// What Shift costs, in presses.
constexpr double kShiftPresses = 6;

// They stay, wanted for addresses and ordinary text in every language.
constexpr std::string_view kKept = ".,-@";

bool isKept(const std::string& text)
{
    return text.size() == 1 && kKept.find(text) != std::string_view::npos;
}

class DefaultSet
{
public:
    DefaultSet(const XkbKeyboard& keyboard, const Repertoire& repertoire,
               const std::vector<Neighbours>& around)
        : m_keyboard(keyboard), m_repertoire(repertoire), m_travel(around)
    {
    }

    KeySet make()
    {
        placeKeyboard();
        placeDigits();
        placeSpaceBar();
        promote();
        m_keys.fillForTheWeb(m_repertoire.punctuation());
        return m_keys;
    }

private:
    void placeKeyboard()
    {
        size_t extra = 0;
        for (size_t i = 0; i < m_keys.size(); ++i) {
            const std::string name = positions()[i].xkbName;
            if (name == "LSGT")
                extra = i;
            else if (!name.empty())
                placeKey(i, m_keyboard.at(name).base);
        }
        // Many keyboards repeat on this key what they type elsewhere, too.
        const KeyTexts& texts = m_keyboard.at("LSGT").base;
        if (!m_keys.has(texts.plain) || !m_keys.has(texts.shifted))
            placeKey(extra, texts);
    }

    void placeKey(size_t i, KeyTexts texts)
    {
        for (std::string* text : {&texts.plain, &texts.shifted})
            if (isForeignLatin(*text))
                text->clear();
        if (texts.shifted.empty())
            texts.shifted = m_repertoire.withUpperCase(texts.plain).shifted;
        // A character that the face has already is one too many; the place is worth more.
        if (!m_keys.hasPlain(texts.plain))
            m_keys.setPlain(i, texts.plain);
        if (!m_keys.hasShifted(texts.shifted))
            m_keys.setShifted(i, texts.shifted);
    }

    bool isLatin() const
    {
        bool isLatin = false;
        for (char c = 'a'; c <= 'z'; ++c)
            isLatin = isLatin || m_repertoire.isLetter(std::string(1, c));
        return isLatin;
    }

    // A few keyboards of other scripts have single Latin letters. They belong to the others, on the
    // symbol faces.
    bool isForeignLatin(const std::string& text) const
    {
        return isAsciiAlphanumeric(text) && digitValue(text) < 0 && !isLatin();
    }

    // 0 to 9, on the keys where a US keyboard has them: all on the first face or, where a letter
    // has one of these keys, all on Shift, which the letter leaves. Other digits stand where the
    // computer keyboard has them.
    void placeDigits()
    {
        if (!isAsciiAlphanumeric(m_repertoire.digits().front()))
            return;
        std::vector<std::string> missing;
        for (const std::string& digit : m_repertoire.digits())
            if (!m_keys.has(digit))
                missing.push_back(digit);
        const bool arePlain =
            std::all_of(missing.begin(), missing.end(), [&](const std::string& digit) {
                return isFreeForDigit(digitPosition(digit));
            });
        for (const std::string& digit : missing)
            placeDigit(digit, digitPosition(digit), arePlain);
    }

    bool isFreeForDigit(size_t i) const
    {
        return isReplaceable(i, false) || digitValue(m_keys.at(i).plain) >= 0;
    }

    // A key has one code, so no two digits.
    void placeDigit(const std::string& digit, size_t i, bool isPlain)
    {
        if (digitValue(m_keys.at(i).plain) >= 0)
            m_keys.setPlain(i, std::string());
        if (digitValue(m_keys.at(i).shifted) >= 0)
            m_keys.setShifted(i, std::string());
        if (isPlain)
            m_keys.setPlain(i, digit);
        else
            m_keys.setShifted(i, digit);
    }

    // What the computer keyboard types with its space bar stands beside ours.
    void placeSpaceBar()
    {
        const XkbKey& bar = m_keyboard.at(kSpaceBar);
        for (const std::string& text :
             {bar.base.plain, bar.base.shifted, bar.altGr.plain, bar.altGr.shifted})
            if (m_repertoire.share(text) > 0 && !m_keys.has(text))
                place(text, m_travel.from(spaceBarPosition()), Role::Web);
    }

    // Of 1, how much of a text the keys cannot type.
    double behindAlt() const
    {
        const Speller typed(m_keys.texts());
        double share = 0;
        for (const std::string& character : m_repertoire.byUse())
            if (!typed.canType(character))
                share += m_repertoire.share(character);
        return share;
    }

    // The most frequent first: what would need Alt, and a second place for what needs Shift.
    void promote()
    {
        const bool isChanged = behindAlt() > kBehindAlt;
        for (const std::string& character : m_repertoire.byUse()) {
            const double share = m_repertoire.share(character);
            if (share == 0)
                return;
            const bool isSlow = share >= kFrequent && !m_keys.hasPlain(character);
            const bool isBehind = isChanged && !Speller(m_keys.texts()).canType(character) &&
                                  behindAlt() > kBehindAltWhenChanged;
            if (m_keys.has(character) ? isSlow : isBehind)
                place(character, m_travel.fromKeys(m_keys, m_repertoire), Role::Printing);
        }
    }

    // A sign on a letter key is one that the keyboard's makers wanted there.
    bool isReplaceable(size_t i, bool shifted) const
    {
        const std::string& text = shifted ? m_keys.at(i).shifted : m_keys.at(i).plain;
        if (text.empty())
            return true;
        if (isKept(text) || isAsciiAlphanumeric(text) || m_repertoire.share(text) > 0)
            return false;
        const bool isDigit = digitValue(text) >= 0 && m_repertoire.uses(text);
        return !isDigit && !m_repertoire.isLetter(text) &&
               (singleCodePoint(text) >= 0x80 || !isLetterKey(i));
    }

    // On the key of this role with the fewest presses, if one is to be had.
    void place(const std::string& text, const std::vector<double>& presses, Role role)
    {
        const std::string upper = m_repertoire.withUpperCase(text).shifted;
        const bool isThere = m_keys.hasShifted(text);
        constexpr double kNone = std::numeric_limits<double>::max();
        double best = kNone;
        size_t key = 0;
        bool shifted = false;
        for (size_t i = 0; i < m_keys.size(); ++i) {
            if (positions()[i].role != role)
                continue;
            const bool takesUpper = upper.empty() || isReplaceable(i, true);
            const double plainCost = presses[i] + (takesUpper ? 0 : kShiftPresses);
            if (isReplaceable(i, false) && plainCost < best) {
                best = plainCost;
                key = i;
                shifted = false;
            }
            const double shiftedCost = presses[i] + kShiftPresses;
            if (upper.empty() && !isThere && isReplaceable(i, true) && shiftedCost < best) {
                best = shiftedCost;
                key = i;
                shifted = true;
            }
        }
        if (best == kNone)
            return;
        if (shifted) {
            m_keys.setShifted(key, text);
            return;
        }
        m_keys.setPlain(key, text);
        if (!upper.empty() && !m_keys.hasShifted(upper) && isReplaceable(key, true))
            m_keys.setShifted(key, upper);
    }

    const XkbKeyboard& m_keyboard;
    const Repertoire& m_repertoire;
    const Travel m_travel;
    KeySet m_keys;
};

} // namespace

KeySet defaultSet(const XkbKeyboard& keyboard, const Repertoire& repertoire,
                  const std::vector<Neighbours>& around)
{
    return DefaultSet(keyboard, repertoire, around).make();
}

} // namespace layouts
