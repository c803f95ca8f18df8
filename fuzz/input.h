#ifndef FUZZ_INPUT_H
#define FUZZ_INPUT_H

#include <cstddef>
#include <cstdint>
#include <string>

// An input is a catalogue and a key map, with this line between them.
constexpr char kSeparator[] = "\n=====\n";

struct LayoutTexts {
    std::string catalogue;
    std::string keyMap;
};

inline LayoutTexts split(const uint8_t* data, size_t size)
{
    const std::string all(reinterpret_cast<const char*>(data), size);
    const size_t at = all.find(kSeparator);
    if (at == std::string::npos)
        return {all, all};
    return {all.substr(0, at), all.substr(at + sizeof kSeparator - 1)};
}

// The fuzzing library calls it, and so does the replay.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

#endif
