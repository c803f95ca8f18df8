#include "kb_script.h"

using namespace transcript;

namespace kb_script
{

Lines press(int key)
{
    return {"key " + std::to_string(key)};
}

Lines move(int key)
{
    return {"key " + std::to_string(key), "usleep 500000"};
}

Lines probeResult(const std::string& text, int key_code)
{
    return {kbLine(13, "kb_test_get_key", "called"), "key 13",
            "result " + text + " " + std::to_string(key_code),
            kbLine(20, "kb_test_get_key",
                   std::string("curernt key :") + static_cast<char>(key_code & 0xFF))};
}

Lines probeAnswer(int answer, const Lines& between)
{
    return Lines{kbLine(13, "kb_test_get_key", "called"), "key 13"} + between +
           Lines{kbLine(22, "kb_test_get_key", "key result :" + std::to_string(answer))};
}

Lines probeShift(int mode)
{
    return probeAnswer(0, {"mode shiftButtonHandle " + std::to_string(mode)});
}

Lines probeAlt(int mode)
{
    return probeAnswer(0, {"mode altButtonHandle " + std::to_string(mode)});
}

Lines probeLanguage(const std::string& next_layout)
{
    return probeAnswer(0, {"layout " + next_layout});
}

Lines probeHide()
{
    return probeAnswer(0, {"hide"});
}

Lines start(const std::string& command, const std::string& parameter, int arguments,
            const std::string& first_layout)
{
    return {mainLine(56, "argc:" + std::to_string(arguments)),
            mainLine(arguments == 4 ? 79 : 73, "mod:kb"),
            kbLine(307, "kb_test", "cmd:" + command + ",param:" + parameter),
            "layout " + first_layout};
}

Lines timed(const Lines& script, int line, const std::string& text, int milliseconds)
{
    return Lines{"clock"} + script +
           Lines{"clock",
                 kbLine(line, "handle_kb_tests",
                        "=======>" + text + " using:" + std::to_string(milliseconds) + " ms")};
}

} // namespace kb_script
