#include "log_capture.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "trace.h"

namespace test_support
{

namespace
{

const char kHeader[] = "[%s] %s:%d:%s(): ";

[[noreturn]] void stop(const char* why, const char* what)
{
    std::fprintf(stderr, "log capture: %s: %s\n", why, what);
    std::abort();
}

// A line, or a part of it, comes behind its level's question only.
void requireLeave(const char* what)
{
    if (LogCapture::current == nullptr || !LogCapture::current->isLineAllowed())
        stop("a line was written whose level is off or was not asked for", what);
}

std::string onOneLine(std::string text)
{
    for (size_t at = 0; (at = text.find('\n', at)) != std::string::npos;)
        text.replace(at, 1, "\\n");
    return text;
}

} // namespace

std::string logTraceLine(const std::string& file, uint32_t level, const std::string& function,
                         const std::string& message)
{
    char word[16];
    std::snprintf(word, sizeof word, "%06X", static_cast<unsigned int>(level));
    return "log " + file + " " + word + " " + function + " \"" + onOneLine(message) + "\"";
}

bool LogCapture::askLevel(void* record)
{
    ++m_levels_asked;
    std::memcpy(m_record.data(), record, sizeof m_record);
    std::memset(record, 0xA5, sizeof m_record);
    m_line_allowed = !m_all_off && m_off.count(m_record[0]) == 0;
    return m_line_allowed;
}

void LogCapture::add(LogLine line)
{
    line.record = m_record;
    record(logTraceLine(line.file, m_record[0], line.function, line.message));
    m_lines.push_back(std::move(line));
    m_line_allowed = false;
}

} // namespace test_support

using test_support::LogCapture;

extern "C" int cspDebugCheckLevelGetFrameAndChunk(void* record)
{
    return LogCapture::current != nullptr && LogCapture::current->askLevel(record) ? 1 : 0;
}

extern "C" const char* blog_base_name(const char* path)
{
    test_support::requireLeave(path);
    const char* slash = std::strrchr(path, '/');
    return slash == nullptr ? path : slash + 1;
}

extern "C" void cspDebugOutput0(const char* format, ...)
{
    using test_support::kHeader;
    test_support::requireLeave(format);
    if (std::strncmp(format, kHeader, std::strlen(kHeader)) != 0)
        test_support::stop("a format begins with another header", format);

    va_list arguments;
    va_start(arguments, format);
    test_support::LogLine line;
    line.tag = va_arg(arguments, const char*);
    line.file = va_arg(arguments, const char*);
    line.line = va_arg(arguments, int);
    line.function = va_arg(arguments, const char*);
    char* message = nullptr;
    if (::vasprintf(&message, format + std::strlen(kHeader), arguments) < 0)
        test_support::stop("a format cannot be followed", format);
    line.message = message;
    std::free(message);
    va_end(arguments);

    LogCapture::current->add(line);
}
