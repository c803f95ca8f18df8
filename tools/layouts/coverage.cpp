#include "coverage.h"

#include <algorithm>

#include "text.h"
#include "typing.h"

namespace layouts
{

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

} // namespace layouts
