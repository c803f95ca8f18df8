// Rules about one key map: numbering, texts, special keys, labels.
#include "rules.h"

#include <map>

#include "catalogue.h"
#include "font.h"
#include "json_file.h"
#include "key_map.h"
#include "keyboard_constants.h"
#include "label.h"
#include "text.h"

namespace layouts
{
namespace
{

using velmora::browser::vkb::KeyCodeBack;
using velmora::browser::vkb::KeyCodeCaretLeft;
using velmora::browser::vkb::KeyCodeCaretRight;
using velmora::browser::vkb::KeyCodeEnter;

constexpr int32_t kDelete = 127; // the character

std::string shown(const std::string& text)
{
    return quoted(text) + " (" + describe(text) + ")";
}

const char* textMember(const Face& face)
{
    return face.shifted ? "shift_text" : "text";
}

std::string characterPath(const Face& face, size_t key)
{
    return keyPath(face, key) + (face.shifted ? ".shiftKeyCharacter" : ".character");
}

bool isAny(const std::string& text, const char* a, const char* b)
{
    return text == a || text == b;
}

bool isControl(int32_t character)
{
    return (character > 0 && character < 0x20) || character == kDelete;
}

void checkCharacter(const std::string& file, const Key& key, const Face& face, size_t i,
                    Findings& findings)
{
    const Legend& legend = legendOf(key, face);
    const int32_t single = singleCodePoint(legend.text);
    const bool isCaretKey = key.keyCode == KeyCodeCaretLeft || key.keyCode == KeyCodeCaretRight;
    if (legend.character == single || isControl(legend.character) ||
        legend.text == labelFor(delivered(legend)) || (isCaretKey && legend.character == 0))
        return;
    findings.push_back({file, characterPath(face, i), std::to_string(legend.character),
                        single
                            ? std::to_string(single) + ", the code point of " + quoted(legend.text)
                            : "0, as " + quoted(legend.text) + " is not one code point",
                        "character"});
}

void checkOrdinaryTexts(const std::string& file, const std::vector<Key>& keys, const Face& face,
                        Findings& findings)
{
    std::map<std::string, size_t> seen;
    for (size_t i = 0; i < keys.size(); ++i) {
        const Key& key = keys[i];
        if (key.isSpecial)
            continue;
        const std::string typed = delivered(legendOf(key, face));
        if (typed.empty() && key.keyCode >= 0)
            findings.push_back({file, textPath(face, i), "a key that types nothing",
                                "a text, or a keyCode of -1 for a key that is to do nothing",
                                "nothing"});
        const auto first = seen.emplace(typed, i);
        if (!typed.empty() && !first.second)
            findings.push_back({file, textPath(face, i), shown(typed),
                                "a character that the face does not have on key " +
                                    std::to_string(first.first->second) + " already",
                                "duplicate"});
    }
}

void checkSpecialTexts(const std::string& file, const std::vector<Key>& keys, const Face& face,
                       Findings& findings)
{
    for (size_t i = 0; i < keys.size(); ++i) {
        const Key& key = keys[i];
        const std::string& text = legendOf(key, face).text;
        if (!key.isSpecial)
            continue;
        if (text == "shift" || text == "alt")
            findings.push_back({file, textPath(face, i), quoted(text),
                                quoted(text == "alt" ? "Alt" : "Shift") +
                                    ", as the key stays marked as locked otherwise",
                                "special"});
        else if (key.isLanguage == worksKeyboard(text))
            findings.push_back({file, textPath(face, i), quoted(text),
                                key.isLanguage
                                    ? "the layout's short name, as this word does something else"
                                    : "\"Shift\", \"Alt\", \"Hide\" or \"ClearAll\", or isLanguage",
                                "special"});
    }
}

struct NeededKey {
    const char* name;
    bool (*isIt)(const Key& key, const std::string& text);
};

constexpr NeededKey kNeeded[] = {
    {"Shift",
     [](const Key& key, const std::string& text) {
         return key.isSpecial && isAny(text, "Shift", "shift");
     }},
    {"Alt", [](const Key& key,
               const std::string& text) { return key.isSpecial && isAny(text, "Alt", "alt"); }},
    {"Hide", [](const Key& key,
                const std::string& text) { return key.isSpecial && isAny(text, "Hide", "hide"); }},
    {"ClearAll",
     [](const Key& key, const std::string& text) {
         return key.isSpecial && isAny(text, "ClearAll", "clearall");
     }},
    {"language",
     [](const Key& key, const std::string&) { return key.isSpecial && key.isLanguage; }},
    {"backspace (keyCode 8)",
     [](const Key& key, const std::string&) {
         return !key.isSpecial && key.keyCode == KeyCodeBack;
     }},
    {"Enter (keyCode 13)",
     [](const Key& key, const std::string&) {
         return !key.isSpecial && key.keyCode == KeyCodeEnter;
     }},
    {"space (a single blank)",
     [](const Key& key, const std::string& text) { return !key.isSpecial && text == " "; }},
};

void checkNeededKeys(const std::string& file, const std::vector<Key>& keys, const Face& face,
                     Findings& findings)
{
    for (const NeededKey& needed : kNeeded) {
        bool found = false;
        for (const Key& key : keys)
            found = found || needed.isIt(key, legendOf(key, face).text);
        if (!found)
            findings.push_back(
                {file, setPath(face.symbol),
                 std::string("no ") + needed.name + " key on the " + face.name + " face",
                 "one on every face", "needed"});
    }
}

} // namespace

std::string setPath(bool symbol)
{
    return symbol ? "Keys.KeyMode_Symbol" : "Keys.KeyMode_Default";
}

std::string keyPath(const Face& face, size_t key)
{
    return setPath(face.symbol) + "[" + std::to_string(key) + "]";
}

std::string textPath(const Face& face, size_t key)
{
    return keyPath(face, key) + "." + textMember(face);
}

void checkIds(const std::string& file, const Json::Value& keyMap, Findings& findings)
{
    for (const Face& face : {kFaces[0], kFaces[2]}) {
        const Json::Value& keys =
            keyMap["Keys"][face.symbol ? "KeyMode_Symbol" : "KeyMode_Default"];
        for (Json::ArrayIndex i = 0; i < keys.size(); ++i)
            if (keys[i]["id"].asInt() != static_cast<int>(i))
                findings.push_back({file, keyPath(face, i) + ".id", keys[i]["id"].asString(),
                                    std::to_string(i) + ", the key's position", "id"});
    }
}

void checkCounts(const std::string& file, const KeyMap& keyMap, size_t places, Findings& findings)
{
    const size_t defaults = keyMap.defaults.size();
    const size_t symbols = keyMap.symbols.size();
    if (defaults != places)
        findings.push_back({file, setPath(false), std::to_string(defaults) + " keys",
                            std::to_string(places) + ", one for each place of the catalogue",
                            "count"});
    if (symbols != defaults)
        findings.push_back({file, setPath(true), std::to_string(symbols) + " keys",
                            std::to_string(defaults) + ", as many as in KeyMode_Default",
                            "lengths"});
}

void checkTexts(const std::string& file, const KeyMap& keyMap, Findings& findings)
{
    for (const Face& face : kFaces) {
        const std::vector<Key>& keys = keysOf(keyMap, face);
        for (size_t i = 0; i < keys.size(); ++i) {
            const std::string& text = legendOf(keys[i], face).text;
            if (!isNfc(text))
                findings.push_back({file, textPath(face, i), shown(text),
                                    shown(nfc(text)) + ", composed as the web does it (NFC)",
                                    "nfc"});
            if (!keys[i].isSpecial)
                checkCharacter(file, keys[i], face, i, findings);
        }
        checkOrdinaryTexts(file, keys, face, findings);
    }
}

void checkSpecialKeys(const std::string& file, const KeyMap& keyMap, Findings& findings)
{
    for (const Face& face : kFaces) {
        checkSpecialTexts(file, keysOf(keyMap, face), face, findings);
        checkNeededKeys(file, keysOf(keyMap, face), face, findings);
    }
}

void checkLabels(const std::string& file, const KeyMap& keyMap, const Catalogue& catalogue,
                 const Font& font, Findings& findings)
{
    constexpr int kBevel = 2; // pixels at each side
    for (const Face& face : kFaces) {
        const std::vector<Key>& keys = keysOf(keyMap, face);
        for (size_t i = 0; i < keys.size() && i < catalogue.cells.size(); ++i) {
            const std::string& text = legendOf(keys[i], face).text;
            for (const char32_t c : codePoints(text))
                if (!font.hasGlyph(c))
                    findings.push_back({file, textPath(face, i),
                                        shown(fromCodePoint(c)) + ", which the font lacks",
                                        "a character of the font, or another font", "glyph"});
            const Font::Extent extent = font.measure(text);
            const int room = keyWidth(catalogue, catalogue.cells[i]) - 2 * kBevel;
            const int start = (room - extent.advance) / 2;
            if (start + extent.left < 0 || start + extent.right > room)
                findings.push_back({file, textPath(face, i),
                                    quoted(text) + ", " +
                                        std::to_string(extent.right - extent.left) + " pixels wide",
                                    "at most " + std::to_string(room) + " pixels", "label"});
        }
    }
}

} // namespace layouts
