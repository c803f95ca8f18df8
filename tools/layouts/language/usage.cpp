// Types the words of a language on a layout.
#include "usage.h"

#include <map>
#include <set>

#include "coverage.h"
#include "key_map.h"
#include "language.h"
#include "presses.h"
#include "text.h"
#include "typing.h"

namespace layouts
{
namespace
{

std::set<std::string> textsWithoutAlt(const KeyMap& keyMap)
{
    std::set<std::string> texts;
    for (const auto& place : placesOf(keyMap))
        if (!place.second.face->symbol)
            texts.insert(place.first);
    return texts;
}

double mean(size_t sum, size_t count)
{
    return count == 0 ? 0 : static_cast<double>(sum) / static_cast<double>(count);
}

} // namespace

Usage usageOf(const KeyMap& keyMap, const Language& language)
{
    const PressCounter counter(keyMap);
    const Speller withoutAlt(textsWithoutAlt(keyMap));
    std::map<std::string, bool> needsAlt;
    size_t presses = 0;
    size_t strokes = 0; // characters and blanks
    size_t characters = 0;
    size_t behindAlt = 0;
    Usage usage;
    for (const std::string& word : wordsOf(language)) {
        ++usage.words;
        if (counter.countWord(word) < 0) {
            usage.untypable.push_back(word);
            continue;
        }
        const std::string lower = lowerCase(word, language.icuName);
        const std::vector<char32_t> letters = codePoints(lower);
        const int count = counter.countWord(lower);
        if (count < 0)
            continue;
        presses += static_cast<size_t>(count);
        strokes += letters.size() + 1;
        for (const char32_t letter : letters) {
            const std::string text = fromCodePoint(letter);
            const auto known = needsAlt.emplace(text, false);
            if (known.second)
                known.first->second = !withoutAlt.canType(text);
            ++characters;
            behindAlt += known.first->second ? 1 : 0;
        }
    }
    usage.presses = mean(presses, strokes);
    usage.behindAlt = mean(behindAlt, characters);
    return usage;
}

} // namespace layouts
