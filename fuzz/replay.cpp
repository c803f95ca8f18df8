// Runs the fuzzed function over the tests' layout sets and over the files named, without fuzzing.
// With --write FOLDER, writes the inputs there instead, as seeds for the fuzzing.
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "input.h"
#include "layout_sets.h"

namespace
{

namespace fs = std::filesystem;

std::string readFile(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// The catalogue of each of the tests' sets with each of its key maps.
std::vector<std::string> inputsOfSets()
{
    std::vector<std::string> inputs;
    for (CheckedSet& set : readCheckedSets()) {
        const std::string catalogue = set.files[layouts::kCatalogueName];
        set.files.erase(layouts::kCatalogueName);
        for (const auto& file : set.files)
            inputs.push_back(catalogue + kSeparator + file.second);
    }
    return inputs;
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> paths(argv + 1, argv + argc);
    const bool writes = paths.size() >= 2 && paths[0] == "--write";
    const fs::path to = writes ? fs::path(paths[1]) : fs::path();
    if (writes)
        paths.erase(paths.begin(), paths.begin() + 2);

    std::vector<std::string> inputs = inputsOfSets();
    for (const std::string& path : paths)
        inputs.push_back(readFile(path));
    for (size_t i = 0; i < inputs.size(); ++i) {
        if (writes)
            std::ofstream(to / std::to_string(i), std::ios::binary) << inputs[i];
        else
            LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(inputs[i].data()),
                                   inputs[i].size());
    }
    std::printf("%zu inputs\n", inputs.size());
    return inputs.empty() ? 1 : 0;
}
