#include "log_capture.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <set>

#include "trace.h"

namespace test_support
{

namespace
{

const char kHeader[] = "[%s] %s:%d:%s(): ";

struct State {
    bool capturing = false;
    bool allOff = false;
    std::set<uint32_t> off;
    std::array<uint32_t, 3> record = {};
    bool lineAllowed = false; // the last question was answered with yes and not used yet
    size_t levelsAsked = 0;
    size_t baseNamesAsked = 0;
    std::vector<LogLine> lines;
};

State& state()
{
    static State current;
    return current;
}

[[noreturn]] void stop(const char* why, const char* what)
{
    std::fprintf(stderr, "log capture: %s: %s\n", why, what);
    std::abort();
}

std::string formatted(const char* format, va_list arguments)
{
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, again);
    va_end(again);

    std::string text(static_cast<size_t>(length) + 1, '\0');
    std::vsnprintf(&text[0], text.size(), format, arguments);
    text.pop_back();
    return text;
}

std::string escaped(const std::string& text)
{
    std::string shown;
    for (const char c : text) {
        if (c == '\n')
            shown += "\\n";
        else if (c == '\t')
            shown += "\\t";
        else
            shown += c;
    }
    return shown;
}

} // namespace

std::string logTraceLine(const std::string& file, uint32_t level, const std::string& function,
                         const std::string& message)
{
    char word[16];
    std::snprintf(word, sizeof word, "%06X", static_cast<unsigned int>(level));
    return "log " + file + " " + word + " " + function + " \"" + escaped(message) + "\"";
}

LogCapture::LogCapture()
{
    state() = State();
    state().capturing = true;
}

LogCapture::~LogCapture()
{
    state().capturing = false;
}

void LogCapture::switchOff(uint32_t level)
{
    state().off.insert(level);
}

void LogCapture::switchOffAll()
{
    state().allOff = true;
}

const std::vector<LogLine>& LogCapture::lines() const
{
    return state().lines;
}

size_t LogCapture::levelsAsked() const
{
    return state().levelsAsked;
}

size_t LogCapture::baseNamesAsked() const
{
    return state().baseNamesAsked;
}

} // namespace test_support

using test_support::state;

extern "C" int cspDebugCheckLevelGetFrameAndChunk(void* record)
{
    auto& now = state();
    ++now.levelsAsked;
    std::memcpy(now.record.data(), record, sizeof now.record);
    std::memset(record, 0xA5, sizeof now.record);
    now.lineAllowed = now.capturing && !now.allOff && now.off.count(now.record[0]) == 0;
    return now.lineAllowed ? 1 : 0;
}

extern "C" const char* blog_base_name(const char* path)
{
    ++state().baseNamesAsked;
    const char* slash = std::strrchr(path, '/');
    return slash == nullptr ? path : slash + 1;
}

extern "C" void cspDebugOutput0(const char* format, ...)
{
    using test_support::kHeader;
    auto& now = state();
    if (!now.lineAllowed)
        test_support::stop("a line was written whose level is off or was not asked for", format);
    now.lineAllowed = false;
    if (std::strncmp(format, kHeader, std::strlen(kHeader)) != 0)
        test_support::stop("a format begins with another header", format);

    va_list arguments;
    va_start(arguments, format);
    test_support::LogLine line;
    line.record = now.record;
    line.tag = va_arg(arguments, const char*);
    line.file = va_arg(arguments, const char*);
    line.line = va_arg(arguments, int);
    line.function = va_arg(arguments, const char*);
    line.message = test_support::formatted(format + std::strlen(kHeader), arguments);
    va_end(arguments);

    test_support::record(
        test_support::logTraceLine(line.file, line.record[0], line.function, line.message));
    now.lines.push_back(line);
}
