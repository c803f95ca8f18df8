// Runs the fuzzed function over layout sets without fuzzing: each folder's catalogue with each of
// its key maps, and each file as it is. With --write FOLDER first, writes the inputs there instead,
// as seeds for the fuzzing.
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "input.h"

namespace
{

namespace fs = std::filesystem;

std::string readFile(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void addSets(const fs::path& folder, std::vector<std::string>& inputs)
{
    const fs::path catalogue = folder / "Language_Name.json";
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const fs::path& file = entry.path();
        if (file.extension() != ".json" || file.filename() == catalogue.filename())
            continue;
        inputs.push_back(readFile(file.parent_path() / catalogue.filename()) + kSeparator +
                         readFile(file));
    }
}

std::vector<std::string> inputsOf(const std::vector<std::string>& paths)
{
    std::vector<std::string> inputs;
    for (const std::string& path : paths) {
        if (fs::is_directory(path))
            addSets(path, inputs);
        else
            inputs.push_back(readFile(path));
    }
    return inputs;
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> paths(argv + 1, argv + argc);
    const bool writes = paths.size() > 2 && paths[0] == "--write";
    const fs::path to = writes ? fs::path(paths[1]) : fs::path();
    if (writes)
        paths.erase(paths.begin(), paths.begin() + 2);

    const std::vector<std::string> inputs = inputsOf(paths);
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
