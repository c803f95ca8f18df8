// The keyboard's log lines, through the platform's three calls.
#ifndef LOG_H
#define LOG_H

#include <cstdint>

// The platform's debug-log library, declared here because the television's toolchain brings
// no header for it.
extern "C" {
int cspDebugCheckLevelGetFrameAndChunk(void* record);
void cspDebugOutput0(const char* format, ...) __attribute__((format(printf, 1, 2)));
const char* blog_base_name(const char* path);
}

namespace velmora
{
namespace browser
{
namespace vkb
{

// First word of a log record: the low 16 bits are the level, a smaller one is more urgent.
enum LogLevel : uint32_t {
    LogError = 0x5F03E8,  // 1000
    LogResult = 0x5F0BB8, // 3000: key results
    LogTrace = 0x5F0FA0,  // 4000
    LogDetail = 0x5F1388, // 5000
};

// The library may write into the record, so each line asks with a fresh one.
inline bool logEnabled(LogLevel level)
{
    uint32_t record[3] = {level, 0, 0};
    return cspDebugCheckLevelGetFrameAndChunk(record) != 0;
}

} // namespace vkb
} // namespace browser
} // namespace velmora

// What every format begins with: tag, source file, line number, function.
#define VKB_LOG_HEADER "[%s] %s:%d:%s(): "

// Macros, because a line that is switched off must not evaluate its arguments. Some line numbers
// are part of the log format: those are given as a constant, so that code can move.
// VKB_LOG_FORMAT and VKB_LOG_WHOLE take a whole format, header included; the others add it.
#define VKB_LOG_FORMAT(level, line, function, format, ...)                                         \
    do {                                                                                           \
        if (::velmora::browser::vkb::logEnabled(level))                                            \
            cspDebugOutput0(format, "B-LOG", blog_base_name(__FILE__), line, function,             \
                            __VA_ARGS__);                                                          \
    } while (0)

#define VKB_LOG_WHOLE(level, line, function, format)                                               \
    do {                                                                                           \
        if (::velmora::browser::vkb::logEnabled(level))                                            \
            cspDebugOutput0(format, "B-LOG", blog_base_name(__FILE__), line, function);            \
    } while (0)

#define VKB_LOG_TEXT(level, line, function, text)                                                  \
    VKB_LOG_WHOLE(level, line, function, VKB_LOG_HEADER text)
#define VKB_LOG(level, text) VKB_LOG_TEXT(level, __LINE__, __func__, text)
#define VKB_LOGF(level, format, ...)                                                               \
    VKB_LOG_FORMAT(level, __LINE__, __func__, VKB_LOG_HEADER format, __VA_ARGS__)

#endif
