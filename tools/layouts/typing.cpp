#include "typing.h"

#include <algorithm>

#include "text.h"

namespace layouts
{

std::vector<std::string> spell(const std::string& text, const std::set<std::string>& keys)
{
    if (keys.count(text))
        return {text};

    // last[i] is the key whose text ends the fewest keys that give the first i bytes.
    const std::string wanted = nfd(text);
    struct Step {
        size_t count;
        std::string key;
        size_t from;
    };
    constexpr size_t kUnreached = static_cast<size_t>(-1);
    std::vector<Step> steps(wanted.size() + 1, Step{kUnreached, std::string(), 0});
    steps[0].count = 0;
    for (size_t i = 0; i < wanted.size(); ++i) {
        if (steps[i].count == kUnreached)
            continue;
        for (const std::string& key : keys) {
            const std::string piece = nfd(key);
            if (piece.empty() || wanted.compare(i, piece.size(), piece) != 0)
                continue;
            Step& end = steps[i + piece.size()];
            if (steps[i].count + 1 < end.count)
                end = {steps[i].count + 1, key, i};
        }
    }

    std::vector<std::string> spelling;
    if (steps.back().count == kUnreached)
        return spelling;
    for (size_t i = wanted.size(); i > 0; i = steps[i].from)
        spelling.push_back(steps[i].key);
    std::reverse(spelling.begin(), spelling.end());
    return spelling;
}

} // namespace layouts
