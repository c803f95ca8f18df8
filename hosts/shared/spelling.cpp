// Words that the keys do not show are looked for in the layouts' input methods.
#include "spelling.h"

#include <iterator>

#include <unictype.h>
#include <unistr.h>

#include "key_result.h"
#include "text_line.h"

namespace host
{

using input_methods::Field;
using velmora::browser::vkb::Button_t;

constexpr int Spelling::kAnyLayout;

namespace
{

input_methods::Settings settingsFor(const std::string& dataFolder)
{
    input_methods::Settings settings;
    settings.dataFolder = dataFolder;
    return settings;
}

std::set<std::string> textsOf(const Layout& layout)
{
    std::set<std::string> texts;
    for (const auto& shifted : layout.faces)
        for (const Face& face : shifted)
            for (const Button_t& key : face)
                if (!key.isSpecial && keyAction(key.keyCode) == KeyAction::Insert)
                    texts.insert(keyText(key.character, key.text));
    return texts;
}

// The text's first character from there on.
std::string characterAt(const std::string& text, size_t position)
{
    ucs4_t character = 0;
    const int length =
        u8_mbtouc(&character, reinterpret_cast<const uint8_t*>(text.data()) + position,
                  text.size() - position);
    return text.substr(position, length > 0 ? static_cast<size_t>(length) : 1);
}

bool isLetter(const std::string& character)
{
    ucs4_t code = 0;
    u8_mbtouc(&code, reinterpret_cast<const uint8_t*>(character.data()), character.size());
    return uc_is_general_category(code, UC_LETTER) || uc_is_general_category(code, UC_MARK);
}

} // namespace

Spelling::Spelling(const KeyboardModel& model, const std::string& dataFolder)
    : m_all(settingsFor(dataFolder))
{
    for (const Layout& layout : model.layouts()) {
        input_methods::InputMethod* method =
            m_all.offersCandidates(layout.name) ? nullptr : m_all.find(layout.name, Field::Text);
        m_methods.push_back(method);
        m_plain.push_back(textsOf(layout));
        if (method == nullptr)
            continue;
        std::set<std::string>& plain = m_plain.back();
        for (auto text = plain.begin(); text != plain.end();)
            text = method->isUsed(*text) ? plain.erase(text) : std::next(text);
    }
}

std::vector<Spelling::Part> Spelling::parts(const std::string& text) const
{
    std::vector<Part> parts;
    std::string word;
    const std::string whole = composed(text);
    for (size_t i = 0; i < whole.size();) {
        const std::string character = characterAt(whole, i);
        i += character.size();
        if (isLetter(character)) {
            word += character;
            continue;
        }
        addWord(word, parts);
        word.clear();
        addWord(character, parts);
    }
    addWord(word, parts);
    return parts;
}

// Whole in one layout where that can be; else only what no key shows.
void Spelling::addWord(const std::string& word, std::vector<Part>& parts) const
{
    bool isShown = true;
    for (size_t i = 0; i < word.size(); i += characterAt(word, i).size())
        isShown = isShown && isPlain(characterAt(word, i));
    if (isShown)
        parts.push_back({word, kAnyLayout});
    if (isShown || addSpelled(word, parts))
        return;
    for (size_t i = 0; i < word.size(); i += characterAt(word, i).size()) {
        const std::string character = characterAt(word, i);
        if (isPlain(character) || !addSpelled(character, parts))
            parts.push_back({character, kAnyLayout});
    }
}

bool Spelling::addSpelled(const std::string& word, std::vector<Part>& parts) const
{
    for (size_t layout = 0; layout < m_methods.size(); ++layout) {
        const std::string keys = m_methods[layout] == nullptr ? "" : m_methods[layout]->spell(word);
        if (keys.empty())
            continue;
        parts.push_back({keys, static_cast<int>(layout)});
        return true;
    }
    return false;
}

// Some key shows it, or its letter and its marks.
bool Spelling::isPlain(const std::string& character) const
{
    for (const std::set<std::string>& plain : m_plain) {
        if (plain.count(character) != 0)
            return true;
        const std::string apart = decomposed(character);
        bool isThere = !apart.empty();
        for (size_t i = 0; isThere && i < apart.size(); i += characterAt(apart, i).size())
            isThere = plain.count(characterAt(apart, i)) != 0;
        if (isThere)
            return true;
    }
    return false;
}

} // namespace host
