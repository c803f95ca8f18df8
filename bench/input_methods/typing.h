#ifndef BENCH_INPUT_METHODS_TYPING_H
#define BENCH_INPUT_METHODS_TYPING_H

#include <cstddef>
#include <string>
#include <vector>

namespace bench
{

// What is at hand after a key, to be shown.
struct Shown {
    std::string committed;
    std::string preedit;
    std::vector<std::string> candidates; // at most kCandidates
};

const size_t kCandidates = 10; // a page, and one that tells of a next

// One way to type a language. Each program has one; the functions are its whole interface.
bool start(const std::string& layout);
Shown press(const std::string& key); // one character of the layout's, UTF-8
void clear();

} // namespace bench

#endif
