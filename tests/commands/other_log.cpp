// Another log library: the same three calls, told apart from ours by what it writes and where.

#include <cstdarg>
#include <cstdio>
#include <cstring>

extern "C" {

int cspDebugCheckLevelGetFrameAndChunk(void*)
{
    return 1;
}

void cspDebugOutput0(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    std::fputs("other: ", stderr);
    std::vfprintf(stderr, format, arguments);
    va_end(arguments);
}

const char* blog_base_name(const char* path)
{
    const char* slash = std::strrchr(path, '/');
    return slash == nullptr ? path : slash + 1;
}
}
