// Reads and writes key maps.
#include "key_map.h"

#include <set>

#include <sstream>

#include <json/value.h>

#include "json_file.h"
#include "text.h"

namespace layouts
{
namespace
{

// How the format writes a key without a label.
const char kNoLabel[] = "NULL";

std::string label(const Json::Value& value)
{
    const std::string text = value.asString();
    return text == kNoLabel ? std::string() : text;
}

std::vector<Key> readKeys(const Json::Value& array)
{
    std::vector<Key> keys;
    for (const Json::Value& key : array)
        keys.push_back({{label(key["text"]), key["character"].asInt()},
                        {label(key["shift_text"]), key["shiftKeyCharacter"].asInt()},
                        key["isSpecial"].asBool(),
                        key["isLanguage"].asBool(),
                        key["keyCode"].asInt(),
                        {key["left_button"].asInt(), key["right_button"].asInt(),
                         key["up_button"].asInt(), key["down_button"].asInt()}});
    return keys;
}

std::string quotedLabel(const std::string& text)
{
    return quoted(text.empty() ? kNoLabel : text);
}

void writeKeys(std::ostream& out, const char* name, const std::vector<Key>& keys)
{
    out << "    \"" << name << "\": [";
    for (size_t i = 0; i < keys.size(); ++i) {
        const Key& key = keys[i];
        out << (i ? "," : "") << "\n      {\"id\": " << i
            << ", \"text\": " << quotedLabel(key.plain.text)
            << ", \"shift_text\": " << quotedLabel(key.shifted.text);
        if (key.isSpecial)
            out << ", \"isSpecial\": true";
        if (key.isLanguage)
            out << ", \"isLanguage\": true";
        out << ", \"keyCode\": " << key.keyCode << ", \"character\": " << key.plain.character
            << ", \"shiftKeyCharacter\": " << key.shifted.character
            << ", \"left_button\": " << key.neighbours.left
            << ", \"right_button\": " << key.neighbours.right
            << ", \"up_button\": " << key.neighbours.up
            << ", \"down_button\": " << key.neighbours.down << "}";
    }
    out << "\n    ]";
}

} // namespace

const Face kFaces[4] = {{"default", false, false},
                        {"default shifted", false, true},
                        {"symbol", true, false},
                        {"symbol shifted", true, true}};

const std::vector<Key>& keysOf(const KeyMap& keyMap, const Face& face)
{
    return face.symbol ? keyMap.symbols : keyMap.defaults;
}

const Legend& legendOf(const Key& key, const Face& face)
{
    return face.shifted ? key.shifted : key.plain;
}

bool worksKeyboard(const std::string& text)
{
    static const std::set<std::string> kWords = {"Shift", "shift", "Alt",      "alt",
                                                 "Hide",  "hide",  "ClearAll", "clearall"};
    return kWords.count(text) != 0;
}

std::string delivered(const Legend& legend)
{
    return legend.character ? fromCodePoint(static_cast<char32_t>(legend.character)) : legend.text;
}

KeyMap readKeyMap(const std::string& file)
{
    return keyMapOf(readJson(file));
}

KeyMap keyMapOf(const Json::Value& root)
{
    const Json::Value& keys = root["Keys"];
    return {readKeys(keys["KeyMode_Default"]), readKeys(keys["KeyMode_Symbol"])};
}

std::string writeKeyMap(const KeyMap& keyMap)
{
    std::ostringstream out;
    out << "{\n  \"Keys\": {\n";
    writeKeys(out, "KeyMode_Default", keyMap.defaults);
    out << ",\n";
    writeKeys(out, "KeyMode_Symbol", keyMap.symbols);
    out << "\n  }\n}\n";
    return out.str();
}

} // namespace layouts
