#ifndef BENCH_BENCH_LAYOUT_H
#define BENCH_BENCH_LAYOUT_H

#include <string>

#include "layout_folder.h"

namespace bench
{

extern const char kLayoutName[];

// Writes a catalogue and a layout of this many keys in each set, with labels of one letter,
// the first key a Shift key, and each key's right neighbour the next one, round and round. The
// keyboard has about a television keyboard's shape, and fits into 1920 by 1080 pixels.
void writeLayout(test_support::LayoutFolder& folder, int keys,
                 const std::string& name = kLayoutName);

} // namespace bench

#endif
