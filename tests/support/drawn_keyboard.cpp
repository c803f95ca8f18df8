#include "drawn_keyboard.h"

#include <cstdio>

namespace test_support
{

namespace
{

// The call without the object that it is made on.
std::string callOf(const std::string& line)
{
    return line.substr(line.find('.') + 1);
}

// Its first line is the right edge, its second the lower one.
velmora::browser::vkb::Rect_t frameOf(const std::string& right, const std::string& lower)
{
    int x = 0, y = 0, right_x = 0, lower_y = 0;
    std::sscanf(right.c_str(), "DrawLine(%d,%d,", &right_x, &y);
    std::sscanf(lower.c_str(), "DrawLine(%d,%d,", &x, &lower_y);
    return {static_cast<int16_t>(x), static_cast<int16_t>(y), static_cast<int16_t>(right_x - x),
            static_cast<int16_t>(lower_y - y)};
}

} // namespace

DrawnKeyboard drawnKeyboard(const Lines& trace)
{
    size_t at = trace.size();
    while (at > 0 && trace[at - 1].find(".Clear(") == std::string::npos)
        --at;
    DrawnKeyboard drawn;
    if (at == 0)
        return drawn;
    drawn.window =
        callOf(trace[at - 1]) == "Clear(0,0,0,0)" ? DrawnKeyboard::Hidden : DrawnKeyboard::Painted;
    bool is_sunken = false;
    for (; at < trace.size(); ++at) {
        const std::string call = callOf(trace[at]);
        if (call.rfind("DrawString(\"", 0) == 0)
            (is_sunken ? drawn.sunken : drawn.keys)
                .push_back(call.substr(12, call.rfind("\",-1,") - 12));
        else if (call == "SetColor(50,50,50,255)" || call == "SetColor(25,25,25,255)")
            is_sunken = call == "SetColor(25,25,25,255)";
        else if (call == "SetColor(255,255,255,255)" && at + 2 < trace.size() &&
                 callOf(trace[at + 1]).rfind("DrawLine(", 0) == 0)
            drawn.frame = frameOf(callOf(trace[at + 1]), callOf(trace[at + 2]));
    }
    return drawn;
}

} // namespace test_support
