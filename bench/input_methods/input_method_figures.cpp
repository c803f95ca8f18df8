// Prints what our library adds to each engine's time a key and to its memory, as rows for
// bench/run.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace
{

const int kRuns = 7; // of each program, in turn
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
    {"hangul", "Korean",
     "ㅁㅗㄷㅡㄴㅇㅣㄴㄱㅏㄴㅇㅡㄴㅌㅐㅇㅓㄴㅏㄹㄸㅐㅂㅜㅌㅓㅈㅏㅇㅠㄹㅗㅇㅜㅁㅕ"
     "ㄱㅡㅈㅗㄴㅇㅓㅁㄱㅗㅏㄱㅜㅓㄴㄹㅣㅇㅔㅇㅣㅆㅇㅓㄷㅗㅇㄷㅡㅇㅎㅏㄷㅏ",
     2000},
    {"m17n", "Vietnamese_Telex", "tieengsvieejt", 1000},
    {"rime", "Chinese_Pinyin", "zhongguoguangbodianshi", 20},
    {"rime", "Cantonese", "gwongdungwaa", 20},
    {"chewing", "Chinese_Zhuyin", "ㄋㄧˇㄏㄠˇㄇㄚ˙ㄋㄧˇㄏㄠˇ", 20},
    {"anthy", "Japanese_Kana", "にほんのにゅーすとてんき", 20},
};

struct Times {
    double nanoseconds = 0;     // a key
    double slowNanoseconds = 0; // of the slowest twentieth
    double kib = 0;
};

// Our library and the engine one after the other, as the machine is at times slower than at others.
struct Pair {
    Times ours, alone;
    double ratio() const { return ours.nanoseconds / alone.nanoseconds; }
};

Times measure(const std::string& program, const Language& language)
{
    const std::string line = std::string(PROGRAMS) + "/typing_" + program + " " + language.layout +
                             " " + language.reading + " " + std::to_string(language.rounds);
    Times times;
    std::FILE* output = popen(line.c_str(), "r");
    const int found =
        std::fscanf(output, "%lf %lf %lf", &times.nanoseconds, &times.slowNanoseconds, &times.kib);
    if (pclose(output) != 0 || found != 3) {
        std::fprintf(stderr, "input_method_figures: no figures of: %s\n", line.c_str());
        std::exit(1);
    }
    return times;
}

double least(const std::vector<Pair>& runs, double (*figure)(const Pair& run))
{
    double least = figure(runs.front());
    for (const Pair& run : runs)
        least = std::min(least, figure(run));
    return least;
}

void print(const Language& language, std::vector<Pair> runs)
{
    std::sort(runs.begin(), runs.end(),
              [](const Pair& one, const Pair& other) { return one.ratio() < other.ratio(); });
    const Pair& median = runs[runs.size() / 2];
    std::printf("%s, a key\t%.4f\t%.1f\tratio\t%.1f ns through the library / %.1f ns of %s called "
                "directly; the median of %zu runs in turn, in each the lower quartile of %d\n",
                language.layout, median.ratio(), kMostRatio, median.ours.nanoseconds,
                median.alone.nanoseconds, language.engine, runs.size(), language.rounds);
    const double slow = least(runs, [](const Pair& run) { return run.ours.slowNanoseconds; });
    std::printf("%s, slow keys\t%.3f\t%.0f\tms\tthat 95 per cent of the keys take at most\n",
                language.layout, slow * 1e-6, kMostMilliseconds);
    const double ours = least(runs, [](const Pair& run) { return run.ours.kib; });
    const double alone = least(runs, [](const Pair& run) { return run.alone.kib; });
    std::printf("%s, memory\t%.0f\t%.0f\tKiB\t%.0f KiB resident, typing through the library - %.0f "
                "KiB called directly; least of %zu\n",
                language.layout, ours - alone, kMostKiB, ours, alone, runs.size());
}

} // namespace

int main()
{
    for (const Language& language : kLanguages) {
        std::vector<Pair> runs(kRuns);
        for (Pair& run : runs) {
            run.ours = measure("library", language);
            run.alone = measure(language.engine, language);
        }
        print(language, runs);
    }
    return 0;
}
