#ifndef TESTS_SUPPORT_LOG_CAPTURE_H
#define TESTS_SUPPORT_LOG_CAPTURE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace test_support
{

// One log line, in the parts in which it was handed to the platform's log library.
struct LogLine {
    std::array<uint32_t, 3> record; // as it was when the level was asked for
    std::string tag;
    std::string file;
    int line;
    std::string function;
    std::string message; // everything behind the header, line ends included
};

// What the trace holds for a log line: `log FILE LEVEL FUNCTION "MESSAGE"`.
std::string logTraceLine(const std::string& file, uint32_t level, const std::string& function,
                         const std::string& message);

// While it lives, log lines are collected here and written to the trace; without one, every level
// is off. A record is overwritten once it was looked at, as the platform's library may do, so a
// record used twice gives itself away. One capture at a time.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    // Lines of this level word, such as 0x5F1388, are off from now on.
    void switchOff(uint32_t level);
    void switchOffAll();

    const std::vector<LogLine>& lines() const;

    // How often a level was asked for, and how often the base name of a source.
    size_t levelsAsked() const;
    size_t baseNamesAsked() const;
};

} // namespace test_support

#endif
