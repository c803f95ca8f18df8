// Finds out on which keys of a layout the letters of its language lie.
#include "coverage.h"

#include <algorithm>

#include "key_map.h"
#include "language.h"
#include "text.h"
#include "typing.h"

namespace layouts
{
namespace
{

const char kSeveralKeys[] = "with several keys";

} // namespace

std::map<std::string, Place> placesOf(const KeyMap& keyMap)
{
    std::map<std::string, Place> places;
    for (const Face& face : kFaces) {
        const std::vector<Key>& keys = keysOf(keyMap, face);
        for (size_t i = 0; i < keys.size(); ++i) {
            const std::string text = delivered(legendOf(keys[i], face));
            if (!keys[i].isSpecial && keys[i].keyCode >= 0 && !text.empty())
                places.emplace(text, Place{&face, i});
        }
    }
    return places;
}

std::vector<std::string> neededTexts(const Language& language)
{
    std::vector<std::string> texts;
    const auto add = [&](const std::string& text) {
        if (!text.empty() && std::find(texts.begin(), texts.end(), text) == texts.end())
            texts.push_back(text);
    };
    for (const std::string& letter : mainLetters(language)) {
        add(letter);
        add(upperCase(letter, language.icuName));
    }
    for (char32_t c = 0x20; c < 0x7F; ++c)
        add(fromCodePoint(c));
    return texts;
}

std::vector<Spelling> spellAll(const KeyMap& keyMap, const std::vector<std::string>& texts)
{
    const std::map<std::string, Place> places = placesOf(keyMap);
    std::set<std::string> keys;
    for (const auto& place : places)
        keys.insert(place.first);
    const Speller speller(keys);

    std::vector<Spelling> spellings;
    for (const std::string& text : texts) {
        Spelling spelling = {text, {}};
        for (const std::string& key : speller.spell(text))
            spelling.keys.push_back(places.at(key));
        spellings.push_back(spelling);
    }
    return spellings;
}

Coverage coverageOf(const KeyMap& keyMap, const Language& language)
{
    Coverage coverage;
    for (const Face& face : kFaces)
        coverage.groups.push_back({face.name, {}});
    coverage.groups.push_back({kSeveralKeys, {}});
    for (const Spelling& spelling : spellAll(keyMap, neededTexts(language))) {
        if (spelling.keys.empty())
            coverage.missing.push_back(spelling.text);
        else if (spelling.keys.size() > 1)
            coverage.groups.back().texts.push_back(spelling.text);
        else
            coverage.groups[static_cast<size_t>(spelling.keys[0].face - kFaces)].texts.push_back(
                spelling.text);
    }
    return coverage;
}

} // namespace layouts
