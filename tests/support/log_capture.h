#ifndef TESTS_SUPPORT_LOG_CAPTURE_H
#define TESTS_SUPPORT_LOG_CAPTURE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <set>
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
// record used twice gives itself away. A line whose level is off or was not asked for stops the
// test, and so does its base name, which stands for all that is evaluated for a line. One capture
// at a time.
class LogCapture
{
public:
    LogCapture() { current = this; }
    ~LogCapture() { current = nullptr; }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    // Lines of this level word, such as 0x5F1388, are off from now on.
    void switchOff(uint32_t level) { m_off.insert(level); }
    void switchOffAll() { m_all_off = true; }

    const std::vector<LogLine>& lines() const { return m_lines; }

    size_t levelsAsked() const { return m_levels_asked; }

    // The platform's three calls come here.
    bool askLevel(void* record);
    // Whether the last question was answered with yes and no line was written since.
    bool isLineAllowed() const { return m_line_allowed; }
    void add(LogLine line);
    static inline LogCapture* current = nullptr;

private:
    std::set<uint32_t> m_off;
    bool m_all_off = false;
    std::array<uint32_t, 3> m_record = {};
    bool m_line_allowed = false;
    size_t m_levels_asked = 0;
    std::vector<LogLine> m_lines;
};

} // namespace test_support

#endif
