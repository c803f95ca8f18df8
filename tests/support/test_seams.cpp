// Replaces a few calls of the C library, so that a test can give a program its own layout files
// and fonts, make a file unreadable, let it sleep in no time and stop its clock. README.md lists
// the variables.

#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/auxv.h>
#include <time.h>
#include <unistd.h>

namespace
{

template <class Function> Function* next(const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

bool startsWith(const char* text, const char* start)
{
    return std::strncmp(text, start, std::strlen(start)) == 0;
}

// A path as the replaced calls use it: where the file is looked for, and whether it may be opened.
class SeenPath
{
public:
    explicit SeenPath(const char* path) : m_given(path)
    {
        if (path == nullptr)
            return;
        const char* refused = std::getenv("VKB_TEST_FAIL_OPEN");
        m_refused = refused != nullptr && std::strcmp(refused, path) == 0;

        const char* root = std::getenv("VKB_TEST_ROOT");
        if (root != nullptr &&
            (startsWith(path, "/usr/local/opt/") || startsWith(path, "/opt/font/")))
            m_moved = std::string(root) + path;
    }

    const char* get() const { return m_moved.empty() ? m_given : m_moved.c_str(); }
    bool refused() const { return m_refused; }

private:
    const char* m_given;
    std::string m_moved;
    bool m_refused = false;
};

template <class Function, class... More>
int openFile(const char* name, int directory, const char* path, More... more)
{
    const SeenPath seen(path);
    if (seen.refused()) {
        errno = EACCES;
        return -1;
    }
    return next<Function>(name)(directory, seen.get(), more...);
}

std::FILE* openStream(const char* name, const char* path, const char* mode)
{
    const SeenPath seen(path);
    if (seen.refused()) {
        errno = EACCES;
        return nullptr;
    }
    return next<std::FILE*(const char*, const char*)>(name)(seen.get(), mode);
}

mode_t modeArgument(int flags, va_list arguments)
{
    return (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

// Pauses and clock readings of the libraries are left alone: DirectFB has its own.
bool calledByProgram(const void* return_address)
{
    Dl_info caller = {};
    Dl_info program = {};
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the kernel gives the address as a number
    const void* entry = reinterpret_cast<const void*>(::getauxval(AT_ENTRY));
    return ::dladdr(return_address, &caller) != 0 && ::dladdr(entry, &program) != 0 &&
           caller.dli_fbase == program.dli_fbase;
}

// The file for the record when it is asked for, otherwise null.
const char* recordFile(const void* return_address)
{
    const char* file = std::getenv("VKB_TEST_SLEEPS");
    return file != nullptr && calledByProgram(return_address) ? file : nullptr;
}

// One write per line, so that a line stays whole also among the lines of another writer.
void record(const char* file, const std::string& what)
{
    const std::string line = what + "\n";
    const int descriptor = next<int(int, const char*, int, ...)>("openat")(
        AT_FDCWD, file, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    if (descriptor < 0 ||
        ::write(descriptor, line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
        std::fprintf(stderr, "VKB_TEST_SLEEPS: %s: cannot be written: %s\n", file,
                     std::strerror(errno));
        std::abort();
    }
    ::close(descriptor);
}

// What a stopped clock shows: any time will do, and only recorded sleeps move it.
timespec g_stopped_clock = {1000, 0};

void recordSleep(const char* file, const char* call, unsigned int amount, int64_t nanoseconds)
{
    const int64_t sum = g_stopped_clock.tv_nsec + nanoseconds;
    g_stopped_clock.tv_sec += static_cast<time_t>(sum / 1000000000);
    g_stopped_clock.tv_nsec = static_cast<long>(sum % 1000000000);
    record(file, std::string(call) + " " + std::to_string(amount));
}

} // namespace

extern "C" {

#define VKB_REPLACE_OPEN(NAME, AT_NAME)                                                            \
    int NAME(const char* path, int flags, ...)                                                     \
    {                                                                                              \
        va_list arguments;                                                                         \
        va_start(arguments, flags);                                                                \
        const mode_t mode = modeArgument(flags, arguments);                                        \
        va_end(arguments);                                                                         \
        return openFile<int(int, const char*, int, ...)>(#AT_NAME, AT_FDCWD, path, flags, mode);   \
    }                                                                                              \
    int AT_NAME(int directory, const char* path, int flags, ...)                                   \
    {                                                                                              \
        va_list arguments;                                                                         \
        va_start(arguments, flags);                                                                \
        const mode_t mode = modeArgument(flags, arguments);                                        \
        va_end(arguments);                                                                         \
        return openFile<int(int, const char*, int, ...)>(#AT_NAME, directory, path, flags, mode);  \
    }
VKB_REPLACE_OPEN(open, openat)
VKB_REPLACE_OPEN(open64, openat64)
#undef VKB_REPLACE_OPEN

// The forms that packages built with _FORTIFY_SOURCE call.
int __open_2(const char* path, int flags)
{
    return ::open(path, flags);
}

int __open64_2(const char* path, int flags)
{
    return ::open64(path, flags);
}

std::FILE* fopen(const char* path, const char* mode)
{
    return openStream("fopen", path, mode);
}

std::FILE* fopen64(const char* path, const char* mode)
{
    return openStream("fopen64", path, mode);
}

int access(const char* path, int mode) noexcept
{
    return next<int(const char*, int)>("access")(SeenPath(path).get(), mode);
}

int usleep(useconds_t microseconds)
{
    const char* file = recordFile(__builtin_return_address(0));
    if (file == nullptr)
        return next<int(useconds_t)>("usleep")(microseconds);
    recordSleep(file, "usleep", microseconds, int64_t(microseconds) * 1000);
    return 0;
}

unsigned int sleep(unsigned int seconds)
{
    const char* file = recordFile(__builtin_return_address(0));
    if (file == nullptr)
        return next<unsigned int(unsigned int)>("sleep")(seconds);
    recordSleep(file, "sleep", seconds, int64_t(seconds) * 1000000000);
    return 0;
}

int clock_gettime(clockid_t clock, timespec* now) noexcept
{
    const char* file = std::getenv("VKB_TEST_CLOCK") != nullptr && clock == CLOCK_MONOTONIC
                           ? recordFile(__builtin_return_address(0))
                           : nullptr;
    if (file == nullptr)
        return next<int(clockid_t, timespec*)>("clock_gettime")(clock, now);
    record(file, "clock");
    *now = g_stopped_clock;
    return 0;
}
}
