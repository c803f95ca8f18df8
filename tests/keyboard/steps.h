#ifndef TESTS_KEYBOARD_STEPS_H
#define TESTS_KEYBOARD_STEPS_H

#include <cstdint>
#include <string>
#include <vector>

#include "keyboard_types.h"
#include "trace.h"

// What the keyboard is expected to do, built step by step from what each operation promises.

namespace steps
{

namespace vkb = velmora::browser::vkb;

// One line of the trace. For a checked DirectFB call also the text that is reported when the call
// fails; empty for log lines and for calls whose results are ignored.
struct Step {
    std::string line;
    std::string checkedAs;
};
using Steps = std::vector<Step>;
using Keys = std::vector<vkb::Button_t>;

Steps operator+(Steps first, const Steps& second);
test_support::Lines linesOf(const Steps& steps);

// Calls whose results are ignored.
Steps calls(const test_support::Lines& lines);

// Level words of the platform's log, and a log line as one step.
const uint32_t kError = 0x5F03E8;
const uint32_t kResult = 0x5F0BB8;
const uint32_t kTrace = 0x5F0FA0;
const uint32_t kDetail = 0x5F1388;
Steps logged(const std::string& file, const std::string& function, const std::string& message,
             uint32_t level);

// Log lines of the parser.
Steps parser(const std::string& function, const std::string& message);
Steps catalogueNotRead();
Steps catalogueRead();
Steps keyMapNotRead();
Steps keyMapRead();
Steps layoutChosen(const std::string& name);

// Takes the trace and compares it.
void expectTrace(const Steps& expected);

} // namespace steps

#endif
