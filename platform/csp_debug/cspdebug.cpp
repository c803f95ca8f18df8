#include "cspdebug.h"

#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#include <poll.h>
#include <unistd.h>

namespace
{

const long kDefaultThreshold = 4000;

// Long enough for every line of the keyboard except those that carry a viewer's or a
// layout's own long text: an ordinary line needs no allocation.
const size_t kShortLineBytes = 1024;

long read_threshold()
{
    const char* value = std::getenv("CSP_DEBUG_LEVEL");
    if (value == nullptr)
        return kDefaultThreshold;

    char* end = nullptr;
    errno = 0;
    const long threshold = std::strtol(value, &end, 10);
    if (end != value && *end == '\0' && errno == 0)
        return threshold;

    std::fprintf(stderr, "CSP_DEBUG_LEVEL: '%s' is no number, expected 0 to 65535; using %ld\n",
                 value, kDefaultThreshold);
    return kDefaultThreshold;
}

long threshold()
{
    static const long kThreshold = read_threshold();
    return kThreshold;
}

// The host may have set standard output to return at once when it is full; a line waits for its
// reader all the same.
void wait_for_room()
{
    pollfd output = {STDOUT_FILENO, POLLOUT, 0};
    ::poll(&output, 1, -1);
}

// Standard output may be a pipe or a terminal that takes a part of a long line, or may be
// interrupted by a signal; only what is left is written again.
void write_whole(const char* text, size_t bytes)
{
    while (bytes > 0) {
        const ssize_t written = ::write(STDOUT_FILENO, text, bytes);
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) {
            wait_for_room();
            continue;
        }
        if (written <= 0)
            return;
        text += written;
        bytes -= static_cast<size_t>(written);
    }
}

} // namespace

int cspDebugCheckLevelGetFrameAndChunk(void* record)
{
    uint32_t level_word = 0;
    std::memcpy(&level_word, record, sizeof level_word);
    return static_cast<long>(level_word & 0xFFFF) <= threshold() ? 1 : 0;
}

void cspDebugOutput0(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);

    char line[kShortLineBytes];
    const int length = std::vsnprintf(line, sizeof line, format, arguments);
    va_end(arguments);

    if (length >= 0 && static_cast<size_t>(length) < sizeof line) {
        write_whole(line, static_cast<size_t>(length));
    } else if (length >= 0) {
        const size_t bytes = static_cast<size_t>(length);
        const std::unique_ptr<char[]> whole(new (std::nothrow) char[bytes + 1]);
        if (whole) {
            std::vsnprintf(whole.get(), bytes + 1, format, again);
            write_whole(whole.get(), bytes);
        } else {
            write_whole(line, sizeof line - 1);
        }
    }
    va_end(again);
}

const char* blog_base_name(const char* path)
{
    if (path == nullptr)
        return nullptr;
    const char* slash = std::strrchr(path, '/');
    return slash == nullptr ? path : slash + 1;
}
