// One key set in the making, and what its free keys get.
#include "key_set.h"

#include <algorithm>

#include "positions.h"
#include "text.h"

namespace layouts
{
namespace
{

// What goes on keys that the language leaves free, the most wanted first. Web addresses are
// what people type here.
const char* const kWebPlain[] = {"@", "/",  "_",  ":", "?", ".", "!", "-", "&", "#", ",",
                                 "'", "\"", "=",  "+", "*", "%", "(", ")", ";", "$", "~",
                                 "^", "|",  "\\", "<", ">", "[", "]", "{", "}", "`"};
const char* const kWebShifted[] = {"€", "£", "$", "¥", "§", "°", "«", "»",
                                   "•", "…", "–", "—", "¿", "¡", "©", "®"};
const char* const kSigns[] = {"€", "£", "¥", "¢", "§", "°", "«", "»", "¿", "¡", "©", "®",
                              "±", "×", "÷", "²", "³", "½", "¼", "¾", "µ", "¶", "·", "¹",
                              "ª", "º", "¬", "¦", "¤", "•", "…", "–", "—", "“", "”", "„",
                              "‘", "’", "‚", "‹", "›", "†", "‡", "™", "‰"};

using Texts = std::set<std::string>;

template <size_t N>
std::string firstMissing(const char* const (&wanted)[N], const Texts& face,
                         const Texts& otherFace = Texts())
{
    for (const char* text : wanted)
        if (!face.count(text) && !otherFace.count(text))
            return text;
    return std::string();
}

std::string firstOf(const std::vector<std::string>& texts)
{
    const auto found = std::find_if(texts.begin(), texts.end(),
                                    [](const std::string& text) { return !text.empty(); });
    return found == texts.end() ? std::string() : *found;
}

void change(std::string& key, Texts& face, const std::string& text)
{
    face.erase(key);
    key = text;
    if (!text.empty())
        face.insert(text);
}

} // namespace

KeySet::KeySet() : m_keys(positions().size())
{
    for (size_t i = 0; i < m_keys.size(); ++i)
        if (!isFree(i))
            set(i, {positions()[i].text, positions()[i].shiftedText});
}

bool KeySet::isFree(size_t i)
{
    const Role role = positions()[i].role;
    return role == Role::Printing || role == Role::Web;
}

bool KeySet::isEmpty(size_t i) const
{
    return isFree(i) && m_keys[i].plain.empty() && m_keys[i].shifted.empty();
}

Texts KeySet::texts() const
{
    Texts all = m_plain;
    all.insert(m_shifted.begin(), m_shifted.end());
    return all;
}

void KeySet::setPlain(size_t i, const std::string& text)
{
    change(m_keys[i].plain, m_plain, text);
}

void KeySet::setShifted(size_t i, const std::string& text)
{
    change(m_keys[i].shifted, m_shifted, text);
}

void KeySet::set(size_t i, const KeyTexts& texts)
{
    setPlain(i, texts.plain);
    setShifted(i, texts.shifted);
}

void KeySet::fillForTheWeb(const std::vector<std::string>& punctuation)
{
    const auto firstOfLanguage = [&] {
        for (const std::string& mark : punctuation)
            if (singleCodePoint(mark) >= 0x80 && !has(mark))
                return mark;
        return std::string();
    };
    for (const size_t i : fillOrder()) {
        if (m_keys[i].plain.empty())
            setPlain(i, firstOf({firstMissing(kWebPlain, m_plain), firstMissing(kSigns, m_plain)}));
        if (m_keys[i].shifted.empty())
            setShifted(
                i, firstOf({firstOfLanguage(), firstMissing(kWebShifted, m_shifted),
                            firstMissing(kWebPlain, m_shifted), firstMissing(kSigns, m_shifted)}));
    }
}

void KeySet::fillWithSigns()
{
    for (const size_t i : fillOrder()) {
        if (m_keys[i].plain.empty())
            setPlain(i, firstMissing(kSigns, m_plain, m_shifted));
        if (m_keys[i].shifted.empty())
            setShifted(i, firstMissing(kSigns, m_plain, m_shifted));
    }
}

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

} // namespace layouts
