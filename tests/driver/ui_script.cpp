#include "ui_script.h"

using namespace transcript;

namespace ui_script
{
namespace
{

// x, y, width, height and text of each test key.
const char* const kKeys[kTestKeys] = {
    "0/0-40/40-a",
    "50/0-40/40-b",
    "100/0-40/40-c",
    "150/0-40/40-d",
    "200/0-40/40-e",
    "250/0-40/40-f",
    "0/50-40/40-g",
    "50/50-40/40-h",
    "100/50-40/40-i",
    "150/50-40/40-j",
    "200/50-40/40-k",
    "250/50-40/40-l",
    "0/100-40/40-m",
    "50/100-80/40-n",
    "140/100-150/40-space",
    "0/150-90/40-Shift",
    "100/150-90/40-.com",
    "200/150-90/40-Enter",
    "0/200-90/40-\xE4\xBD\xA0\xE5\xA5\xBD",
};

} // namespace

std::string paintedKey(int key)
{
    return std::string("ui drawElement [") + kKeys[key] + "] ";
}

Lines draw(Detail detail, const std::vector<int>& locked)
{
    if (detail == Detail::OFF)
        return {"ui clear called "};

    Lines lines = {"ui draw called", "ui clear called "};
    for (int key = 0; key < kTestKeys; ++key)
        lines.push_back(paintedKey(key));
    for (const int key : locked)
        lines.push_back(paintedKey(key));
    lines.push_back("ui draw done");
    return lines;
}

Lines show(Detail detail, const std::vector<int>& locked)
{
    return Lines{"ui show called "} + draw(detail, locked);
}

Lines hide()
{
    return {"ui hide called", "ui clear called "};
}

Lines setFocus(Detail detail, const std::vector<int>& locked)
{
    return Lines{"ui setfocus called "} + draw(detail, locked);
}

Lines start(const std::string& command, const std::string& parameter, int arguments)
{
    return {mainLine(56, "argc:" + std::to_string(arguments)),
            mainLine(arguments == 4 ? 79 : 73, "mod:kbui"),
            kbUiLine("kb_ui_test", "cmd:" + command + ",param:" + parameter),
            "ui KeyBoardUI called (800/600)",
            "ui clear called ",
            "ui setLayoutData called lines;19",
            "ui setLayoutData font-height:37"};
}

Lines timed(const Lines& script, const std::string& text, int milliseconds)
{
    return Lines{"clock"} + script +
           Lines{"clock", kbUiLine("handle_tests", "=======>" + text + " using:" +
                                                       std::to_string(milliseconds) + " ms")};
}

} // namespace ui_script
