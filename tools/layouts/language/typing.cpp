// Spells a text with the keys that there are.
#include "typing.h"

#include <algorithm>
#include <deque>
#include <map>

#include <unicode/uchar.h>

#include "text.h"

namespace layouts
{

std::vector<char32_t> frontOf(const std::string& text)
{
    std::vector<char32_t> front;
    for (const char32_t c : codePoints(text)) {
        const bool isMark = u_getCombiningClass(static_cast<UChar32>(c)) != 0;
        if (!front.empty() && !isMark)
            break;
        front.push_back(c);
        if (!isMark)
            break;
    }
    return front;
}

bool removeFront(const std::string& text, const std::string& piece, std::string& rest)
{
    rest = text;
    for (const char32_t c : codePoints(piece)) {
        const std::string bytes = fromCodePoint(c);
        const size_t at = rest.find(bytes);
        if (at == std::string::npos)
            return false;
        rest.erase(at, bytes.size());
    }
    return nfd(piece + rest) == text;
}

Speller::Speller(const std::set<std::string>& keys) : m_keys(keys)
{
    for (const std::string& key : keys)
        if (!key.empty())
            m_decomposed.emplace_back(nfd(key), key);
}

std::vector<std::string> Speller::spell(const std::string& text) const
{
    if (m_keys.count(text))
        return {text};

    // Breadth first from the whole text; each step types one key off its front.
    struct Step {
        std::string before;
        std::string key;
    };
    const std::string whole = nfd(text);
    std::map<std::string, Step> steps = {{whole, {}}};
    std::deque<std::string> open = {whole};
    while (!open.empty() && !steps.count(std::string())) {
        const std::string left = open.front();
        open.pop_front();
        for (const auto& piece : m_decomposed) {
            std::string rest;
            if (left.find(piece.first[0]) != std::string::npos &&
                removeFront(left, piece.first, rest) &&
                steps.insert({rest, {left, piece.second}}).second)
                open.push_back(rest);
        }
    }

    std::vector<std::string> spelling;
    if (text.empty() || !steps.count(std::string()))
        return spelling;
    for (std::string at; at != whole; at = steps.at(at).before)
        spelling.push_back(steps.at(at).key);
    std::reverse(spelling.begin(), spelling.end());
    return spelling;
}

} // namespace layouts
