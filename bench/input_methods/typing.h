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

    size_t bytes() const { return committed.size() + preedit.size(); }
};

const size_t kCandidates = 10; // a page, and one that tells of a next

// One way to type a language. Each program has one; the functions are its whole interface.
//
// Gets ready what a press hands over: here a key result, there what the engine takes for a key.
// The characters are those of the layout's keys, UTF-8.
bool start(const std::string& layout, const std::vector<std::string>& characters);

// Presses the key of this character, an index, and has all texts at hand that are then to be shown,
// as UTF-8. Returns the bytes of what was committed and what is being composed.
size_t press(size_t character);

void clear();

} // namespace bench

#endif
