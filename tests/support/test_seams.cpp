// Replaces a few calls of the C library, so that a test can give a program its own layout files
// and fonts, let it sleep in no time and stop its clock. README.md lists the variables.

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

// Where the replaced calls look for a file.
std::string seenPath(const char* path)
{
    const char* root = std::getenv("VKB_TEST_ROOT");
    const bool is_moved =
        root != nullptr && (startsWith(path, "/usr/local/opt/") || startsWith(path, "/opt/font/"));
    return is_moved ? std::string(root) + path : path;
}

std::FILE* openStream(const char* name, const char* path, const char* mode)
{
    return next<std::FILE*(const char*, const char*)>(name)(seenPath(path).c_str(), mode);
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
void record(const char* file, const std::string& line)
{
    std::FILE* stream = openStream("fopen", file, "ae");
    if (stream == nullptr || std::fprintf(stream, "%s\n", line.c_str()) < 0 ||
        std::fclose(stream) != 0) {
        std::fprintf(stderr, "VKB_TEST_SLEEPS: %s: cannot be written: %s\n", file,
                     std::strerror(errno));
        std::abort();
    }
}

const int64_t kSecond = 1000000000; // nanoseconds

// What a stopped clock shows, in nanoseconds: any time will do, and only recorded sleeps move it.
int64_t g_stopped_clock = 1000 * kSecond;

// Makes a pause of this many units, or only records it. The unit is in nanoseconds.
template <class Result, class Amount>
Result pause(const char* call, Amount amount, int64_t unit, const void* return_address)
{
    const char* file = recordFile(return_address);
    if (file == nullptr)
        return next<Result(Amount)>(call)(amount);
    g_stopped_clock += amount * unit;
    record(file, std::string(call) + " " + std::to_string(amount));
    return 0;
}

} // namespace

extern "C" {

// The last arguments are those of the call before its flags.
#define VKB_REPLACE_OPEN(NAME, REAL, DIRECTORY, ...)                                               \
    int NAME(__VA_ARGS__, int flags, ...)                                                          \
    {                                                                                              \
        va_list more;                                                                              \
        va_start(more, flags);                                                                     \
        const mode_t mode = (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(more, mode_t) : 0;     \
        va_end(more);                                                                              \
        return next<int(int, const char*, int, ...)>(REAL)(DIRECTORY, seenPath(path).c_str(),      \
                                                           flags, mode);                           \
    }
VKB_REPLACE_OPEN(open, "openat", AT_FDCWD, const char* path)
VKB_REPLACE_OPEN(open64, "openat64", AT_FDCWD, const char* path)
VKB_REPLACE_OPEN(openat, "openat", directory, int directory, const char* path)
VKB_REPLACE_OPEN(openat64, "openat64", directory, int directory, const char* path)
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
    return next<int(const char*, int)>("access")(seenPath(path).c_str(), mode);
}

int usleep(useconds_t microseconds)
{
    return pause<int>("usleep", microseconds, 1000, __builtin_return_address(0));
}

unsigned int sleep(unsigned int seconds)
{
    return pause<unsigned int>("sleep", seconds, kSecond, __builtin_return_address(0));
}

int clock_gettime(clockid_t clock, timespec* now) noexcept
{
    const char* file = std::getenv("VKB_TEST_CLOCK") != nullptr && clock == CLOCK_MONOTONIC
                           ? recordFile(__builtin_return_address(0))
                           : nullptr;
    if (file == nullptr)
        return next<int(clockid_t, timespec*)>("clock_gettime")(clock, now);
    record(file, "clock");
    *now = {static_cast<time_t>(g_stopped_clock / kSecond),
            static_cast<long>(g_stopped_clock % kSecond)};
    return 0;
}
}
