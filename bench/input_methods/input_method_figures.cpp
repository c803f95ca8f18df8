// Prints what our library adds to each engine's time a key and to its memory, as rows for
// bench/run.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace
{

const int kRuns = 5; // of each program, in turn
const double kMostRatio = 1.1;
const double kMostKiB = 1024;
const double kMostMilliseconds = 16;

struct Language {
    const char* engine;
    const char* layout;
    const char* reading; // of which the keys are pressed one by one
    int rounds;
};

const Language kLanguages[] = {
    {"hangul", "Korean", "ㅇㅏㄴㄴㅕㅇㅎㅏㅅㅔㅇㅛ", 2000},
    {"m17n", "Vietnamese_Telex", "tieengsvieejt", 1000},
    {"rime", "Chinese_Pinyin", "zhongguoguangbodianshi", 20},
    {"rime", "Cantonese", "gwongdungwaa", 20},
    {"chewing", "Chinese_Zhuyin", "ㄋㄧˇㄏㄠˇㄇㄚ˙ㄋㄧˇㄏㄠˇ", 20},
    {"anthy", "Japanese_Kana", "にほんのにゅーすとてんき", 20},
};

struct Times {
    double nanoseconds = 1e18;     // a key
    double slowNanoseconds = 1e18; // of the slowest twentieth
    double kib = 1e18;
};

// The least of what is known and of another run.
void measure(const std::string& program, const Language& language, Times& times)
{
    const std::string line = std::string(PROGRAMS) + "/typing_" + program + " " + language.layout +
                             " " + language.reading + " " + std::to_string(language.rounds);
    Times now;
    std::FILE* output = popen(line.c_str(), "r");
    const int found =
        std::fscanf(output, "%lf %lf %lf", &now.nanoseconds, &now.slowNanoseconds, &now.kib);
    if (pclose(output) != 0 || found != 3) {
        std::fprintf(stderr, "input_method_figures: no figures of: %s\n", line.c_str());
        std::exit(1);
    }
    times.nanoseconds = std::min(times.nanoseconds, now.nanoseconds);
    times.slowNanoseconds = std::min(times.slowNanoseconds, now.slowNanoseconds);
    times.kib = std::min(times.kib, now.kib);
}

void print(const Language& language, const Times& ours, const Times& alone)
{
    std::printf("%s, a key\t%.4f\t%.1f\tratio\t%.0f ns through the library / %.0f ns of %s called "
                "directly; the fastest of %d, %d runs in turn\n",
                language.layout, ours.nanoseconds / alone.nanoseconds, kMostRatio, ours.nanoseconds,
                alone.nanoseconds, language.engine, language.rounds, kRuns);
    std::printf("%s, slow keys\t%.3f\t%.0f\tms\tthat 95 per cent of the keys take at most\n",
                language.layout, ours.slowNanoseconds * 1e-6, kMostMilliseconds);
    std::printf("%s, memory\t%.0f\t%.0f\tKiB\t%.0f KiB resident, typing through the library - %.0f "
                "KiB called directly; least of %d\n",
                language.layout, ours.kib - alone.kib, kMostKiB, ours.kib, alone.kib, kRuns);
}

} // namespace

int main()
{
    for (const Language& language : kLanguages) {
        Times ours, alone;
        for (int run = 0; run < kRuns; ++run) {
            measure("library", language, ours);
            measure(language.engine, language, alone);
        }
        print(language, ours, alone);
    }
    return 0;
}
