#include "keyboard_model.h"

#include <algorithm>
#include <utility>

#include "Language_Parser.h"

#include "input_methods.h"

namespace host
{

using velmora::browser::vkb::Button_t;
using velmora::browser::vkb::LanguageParser;

namespace
{

enum class Function { Shift, Alt, Hide, ClearAll, Language, Unknown };

struct FunctionOfText {
    const char* text;
    Function function;
};

const FunctionOfText kFunctions[] = {
    {"shift", Function::Shift},       {"Shift", Function::Shift},       {"hide", Function::Hide},
    {"Hide", Function::Hide},         {"alt", Function::Alt},           {"Alt", Function::Alt},
    {"clearall", Function::ClearAll}, {"ClearAll", Function::ClearAll},
};

// A special key is known by its text first.
Function functionOf(const Button_t& key)
{
    for (const FunctionOfText& entry : kFunctions)
        if (key.text == entry.text)
            return entry.function;
    return key.isLanguage ? Function::Language : Function::Unknown;
}

Shift afterShiftKey(Shift shift)
{
    switch (shift) {
    case Shift::Off:
        return Shift::Once;
    case Shift::Once:
        return Shift::Locked;
    case Shift::Locked:
        break;
    }
    return Shift::Off;
}

int neighbour(const Button_t& key, Press press)
{
    switch (press) {
    case Press::Left:
        return key.left_button;
    case Press::Up:
        return key.up_button;
    case Press::Right:
        return key.right_button;
    case Press::Down:
        return key.down_button;
    case Press::Ok:
        break;
    }
    return key.id;
}

} // namespace

bool operator==(const KeyboardState& a, const KeyboardState& b)
{
    return a.layout == b.layout && a.shift == b.shift && a.alt == b.alt && a.key == b.key;
}

KeyboardModel::KeyboardModel(std::vector<Layout> layouts) : m_layouts(std::move(layouts)) {}

const Face& KeyboardModel::face(const KeyboardState& state) const
{
    return m_layouts[state.layout].faces[state.shift != Shift::Off][state.alt];
}

const Button_t* KeyboardModel::focused(const KeyboardState& state) const
{
    if (state.layout >= m_layouts.size())
        return nullptr;
    const Face& keys = face(state);
    const bool exists = state.key >= 0 && static_cast<size_t>(state.key) < keys.size();
    return exists ? &keys[static_cast<size_t>(state.key)] : nullptr;
}

bool KeyboardModel::isInTopRow(const KeyboardState& state) const
{
    const Button_t* key = focused(state);
    if (key == nullptr)
        return false;
    const Face& keys = face(state);
    return std::none_of(keys.begin(), keys.end(), [key](const Button_t& other) {
        return other.rect.positionY < key->rect.positionY;
    });
}

KeyboardModel::Step KeyboardModel::after(const KeyboardState& state, Press press) const
{
    const Button_t* key = focused(state);
    if (key == nullptr)
        return {state, nullptr, false};
    if (press == Press::Ok)
        return afterOk(state);

    KeyboardState moved = state;
    moved.key = neighbour(*key, press);
    return {focused(moved) == nullptr ? state : moved, nullptr, false};
}

KeyboardModel::Step KeyboardModel::afterOk(const KeyboardState& state) const
{
    const Button_t& key = *focused(state);
    KeyboardState next = state;
    if (!key.isSpecial) {
        if (key.keyCode < 0)
            return {state, nullptr, false};
        if (state.shift == Shift::Once)
            next.shift = Shift::Off;
        return {next, &key, false};
    }

    switch (functionOf(key)) {
    case Function::Shift:
        next.shift = afterShiftKey(state.shift);
        break;
    case Function::Alt:
        next.alt = !state.alt;
        break;
    case Function::Language:
        next = KeyboardState();
        next.layout = (state.layout + 1) % m_layouts.size();
        next.key = state.key;
        break;
    case Function::Hide:
        return {state, nullptr, true};
    case Function::ClearAll:
        return {state, &key, false};
    case Function::Unknown:
        break;
    }
    return {next, nullptr, false};
}

std::vector<Layout> installedLayouts()
{
    LanguageParser parser;
    const input_methods::InputMethods methods{input_methods::Settings()};
    std::vector<Layout> layouts;
    for (std::string name : std::vector<std::string>(parser.getLayoutsName())) {
        parser.onLayoutchanged(name);
        Layout layout;
        layout.name = name;
        layout.hasCandidates = methods.offersCandidates(name);
        for (const bool shift : {false, true})
            for (const bool alt : {false, true})
                layout.faces[shift][alt] = parser.getKeyMap(name, shift, alt);
        layouts.push_back(std::move(layout));
    }
    return layouts;
}

} // namespace host
