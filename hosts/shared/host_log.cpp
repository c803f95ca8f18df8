#include "host_log.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

// The host's own three log calls. The platform's library writes to standard output, which here
// belongs to the submitted text; being defined in the program, these are taken instead of it.

namespace
{

FILE* log_file = nullptr;
bool is_held = false;

} // namespace

namespace host
{

bool openLog(const std::string& file)
{
    log_file = std::fopen(file.c_str(), "ae");
    return log_file != nullptr;
}

void holdLog(bool hold)
{
    is_held = hold;
}

} // namespace host

extern "C" {

int cspDebugCheckLevelGetFrameAndChunk(void*)
{
    return log_file != nullptr && !is_held;
}

__attribute__((format(printf, 1, 2))) void cspDebugOutput0(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    std::vfprintf(log_file, format, arguments);
    va_end(arguments);
    std::fflush(log_file);
}

const char* blog_base_name(const char* path)
{
    const char* slash = std::strrchr(path, '/');
    return slash == nullptr ? path : slash + 1;
}
}
