#include "core_walk.h"

#include <cstdlib>
#include <map>
#include <stdexcept>

#include "json_file.h"
#include "kb_test.h"
#include "leaves_behind.h"
#include "shipped.h"
#include "trace.h"

using namespace layouts;

namespace
{

const int kOk = 13;
const int kLeft = 37;
const int kUp = 38;
const int kRight = 39;
const int kDown = 40;

// The remote's keys that lead from one key to another.
std::vector<int> wayBetween(const std::vector<Key>& keys, size_t from, size_t to)
{
    std::map<size_t, std::pair<size_t, int>> before = {{from, {from, 0}}};
    std::vector<size_t> open = {from};
    for (size_t at = 0; at < open.size() && !before.count(to); ++at) {
        const Neighbours& around = keys[open[at]].neighbours;
        const std::pair<int, int> moves[] = {
            {around.left, kLeft}, {around.up, kUp}, {around.right, kRight}, {around.down, kDown}};
        for (const auto& move : moves)
            if (before.insert({static_cast<size_t>(move.first), {open[at], move.second}}).second)
                open.push_back(static_cast<size_t>(move.first));
    }
    std::vector<int> way;
    for (size_t at = to; at != from; at = before.at(at).first)
        way.insert(way.begin(), before.at(at).second);
    return way;
}

size_t specialKey(const std::vector<Key>& keys, const std::string& text)
{
    for (size_t i = 0; i < keys.size(); ++i)
        if (keys[i].isSpecial && keys[i].plain.text == text)
            return i;
    throw std::runtime_error("no " + text + " key");
}

bool beginsWith(const std::string& text, const std::string& start)
{
    return text.rfind(start, 0) == 0;
}

// What one log line says about the keyboard's doing; empty for most.
std::string eventOf(const test_support::LogLine& line)
{
    const std::string result = "button.text = ";
    const std::string keyCode = ",button.keyCode = ";
    if (beginsWith(line.message, result)) {
        const size_t at = line.message.rfind(keyCode);
        return line.message.substr(result.size(), at - result.size()) + "/" +
               std::to_string(std::stoi(line.message.substr(at + keyCode.size())));
    }
    if (beginsWith(line.message, "ShiftMode:"))
        return line.function == "altButtonHandle" ? "Alt" : "Shift";
    if (line.function == "languageButtonHandle" && beginsWith(line.message, "called"))
        return "language";
    return beginsWith(line.message, "Hide VKB") ? "hidden" : std::string();
}

} // namespace

CoreWalk::CoreWalk(const std::string& layout) : m_key_map(shippedKeyMap(layout))
{
    Catalogue catalogue = shippedCatalogue();
    catalogue.names = {layout, layout == "English" ? "German" : "English"};
    m_folder.writeCatalogue(writeCatalogue(catalogue));
    for (const std::string& name : catalogue.names)
        m_folder.writeKeyMap(name, readFile(keyMapFile(shippedFolder(), name)));
    setenv("VIRTUAL_KEYBOARD_FONT_PATH", (m_folder.root() + "/none").c_str(), 1);
    setenv("VKB_TEST_SLEEPS", (m_folder.root() + "/sleeps").c_str(), 1);
}

std::string CoreWalk::type(const std::vector<Place>& keys)
{
    if (!m_core) {
        m_core.reset(new velmora::browser::vkb::KeyBoardCore);
        m_core->OnIMEStart(dfb(), surface());
    }
    std::string typed;
    for (const Place& place : keys) {
        changeFace(*place.face);
        moveTo(place.key);
        press(kOk);
        velmora::browser::vkb::OsButton_t button = {};
        m_core->getKeyBoardButton(button);
        if (m_result != 1)
            return "no key result on key " + std::to_string(place.key);
        typed += delivered({button.text, button.character});
        m_shift = false; // it was on for this key only
    }
    return typed;
}

void CoreWalk::changeFace(const Face& face)
{
    const std::vector<Key>& keys = m_key_map.defaults;
    if (m_alt != face.symbol) {
        moveTo(specialKey(keys, "Alt"));
        press(kOk);
        m_alt = face.symbol;
    }
    if (face.shifted) {
        moveTo(specialKey(keys, "Shift"));
        press(kOk);
        m_shift = true;
    }
}

void CoreWalk::moveTo(size_t key)
{
    const std::vector<Key>& keys = m_alt ? m_key_map.symbols : m_key_map.defaults;
    for (const int move : wayBetween(keys, m_focus, key))
        press(move);
    m_focus = key;
}

void CoreWalk::press(int keyCode)
{
    m_result = m_core->onKeyEvent(keyCode);
    test_support::takeTrace();
}

std::vector<std::string> runScript(CoreWalk& keyboard, const std::string& command,
                                   const std::string& parameter)
{
    test_support::LogCapture log;
    {
        const test_support::LeavesBehind keyboardForTheDriversWholeLife;
        kb_test(command, parameter, keyboard.dfb(), keyboard.surface());
    }
    test_support::takeTrace();
    std::vector<std::string> events;
    for (const test_support::LogLine& line : log.lines()) {
        const std::string event = eventOf(line);
        if (!event.empty())
            events.push_back(event);
    }
    return events;
}
