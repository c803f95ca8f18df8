// Times of reading a layout, beside those of the JSON library alone.
//
// Usage: load_times ROUNDS    (reports on file descriptor 3)
//
// Each round reads layouts of 70, 1,000 and 10,000 keys, by the keyboard and by Json::Reader in
// turn. Reported is the least time of each, in microseconds of this thread: what others do on the
// machine only adds.
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <string>

#include <json/json.h>
#include <time.h>

#include "Language_Parser.h"
#include "bench_layout.h"
#include "report_fd.h"

using test_support::LayoutFolder;
using velmora::browser::vkb::LanguageParser;

namespace
{

[[noreturn]] void fail(const char* why)
{
    std::fprintf(stderr, "load_times: %s\n", why);
    std::exit(1);
}

double threadMicroseconds()
{
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return 1e6 * static_cast<double>(now.tv_sec) + 1e-3 * static_cast<double>(now.tv_nsec);
}

template <class Action> void keepLeast(double& least, Action action)
{
    const double before = threadMicroseconds();
    action();
    least = std::min(least, threadMicroseconds() - before);
}

void readByLibraryAlone(const std::string& path)
{
    std::ifstream file(path, std::ios::in | std::ios::binary);
    Json::Value root;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // the reader of the keyboard
    Json::Reader reader;
    if (!reader.parse(file, root, true))
        fail("the library did not read the layout");
#pragma GCC diagnostic pop
}

struct Layout {
    int keys;
    std::string name;
    double keyboard; // microseconds, as is alone
    double alone;

    explicit Layout(int number)
        : keys(number), name(std::to_string(number)),
          keyboard(std::numeric_limits<double>::infinity()), alone(keyboard)
    {
    }

    void read(LanguageParser& parser)
    {
        parser.onLayoutchanged(name);
        if (parser.getKeyMap(name, true, true).size() != static_cast<size_t>(keys))
            fail("keys are missing");
        // The reads before have made room for a layout of this size.
        keepLeast(keyboard, [&] { parser.ParseCurrentLayoutKeyMaps(); });
        const std::string path = LayoutFolder::keyMapPath(name);
        keepLeast(alone, [&] { readByLibraryAlone(path); });
    }

    void report(int rounds) const
    {
        char compared[160];
        std::snprintf(compared, sizeof compared,
                      "%.0f us of ParseCurrentLayoutKeyMaps() / %.0f us of reading and parsing the "
                      "file by Json::Reader; least of %d in turn",
                      keyboard, alone, rounds);
        bench::figure("layout load, " + name + " keys", keyboard / alone, 1.2, "ratio", compared);
    }
};

} // namespace

int main(int argc, char** argv)
{
    const int rounds = argc == 2 ? std::atoi(argv[1]) : 0;
    if (rounds < 1)
        fail("usage: load_times ROUNDS");

    LayoutFolder folder;
    Layout layouts[] = {Layout(70), Layout(1000), Layout(10000)};
    for (const Layout& layout : layouts)
        bench::writeLayout(folder, layout.keys, layout.name);

    LanguageParser parser;
    for (int round = 0; round < rounds; ++round)
        for (Layout& layout : layouts)
            layout.read(parser);
    layouts[0].report(rounds);
    layouts[2].report(rounds);
    const double ours = layouts[2].keyboard / layouts[1].keyboard;
    const double alone = layouts[2].alone / layouts[1].alone;
    bench::figure("layout load, growth", ours / alone, 1.05, "ratio",
                  std::to_string(ours) + " times from 1,000 keys to 10,000 / " +
                      std::to_string(alone) + " times of Json::Reader alone in the same loop");
}
