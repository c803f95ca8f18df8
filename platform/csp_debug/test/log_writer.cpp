// log_writer levels WORD...   tells of each level word whether its lines are written
// log_writer lines N END      writes N numbered lines, then ends: return, abort or kill
// log_writer long N           writes one line of N characters and its newline
// log_writer nonblocking N    the same into an output that refuses to block

#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <string>

#include <fcntl.h>
#include <unistd.h>

#include "cspdebug.h"

namespace
{

void levels(int count, char** words)
{
    for (int i = 0; i < count; ++i) {
        uint32_t record[3] = {static_cast<uint32_t>(std::strtoul(words[i], nullptr, 0)), 0, 0};
        const bool on = cspDebugCheckLevelGetFrameAndChunk(record) != 0;
        cspDebugOutput0("%s %s\n", words[i], on ? "on" : "off");
    }
}

void lines(int count, const std::string& end)
{
    for (int i = 1; i <= count; ++i)
        cspDebugOutput0("line %d\n", i);
    if (end == "abort")
        std::abort();
    if (end == "kill")
        std::raise(SIGKILL);
}

void longLine(size_t length)
{
    cspDebugOutput0("%s\n", std::string(length, 'x').c_str());
}

} // namespace

int main(int argc, char** argv)
{
    const std::string command = argc > 1 ? argv[1] : "";
    if (command == "levels") {
        levels(argc - 2, argv + 2);
    } else if (command == "lines" && argc == 4) {
        lines(std::atoi(argv[2]), argv[3]);
    } else if (command == "long" && argc == 3) {
        longLine(std::strtoul(argv[2], nullptr, 10));
    } else if (command == "nonblocking" && argc == 3) {
        fcntl(STDOUT_FILENO, F_SETFL, fcntl(STDOUT_FILENO, F_GETFL) | O_NONBLOCK);
        longLine(std::strtoul(argv[2], nullptr, 10));
    } else {
        return 2;
    }
    return 0;
}
