#ifndef LAYOUTS_FINDING_H
#define LAYOUTS_FINDING_H

#include <string>
#include <vector>

namespace layouts
{

// One thing that is wrong in a layout set.
struct Finding {
    std::string file;
    std::string where; // the path in the JSON, or line and column
    std::string found;
    std::string expected;
    std::string rule; // one word, under which the manual explains the finding
};

using Findings = std::vector<Finding>;

inline std::string asLine(const Finding& finding)
{
    return finding.file + ": " + finding.where + ": found " + finding.found + ", expected " +
           finding.expected + " [" + finding.rule + "]";
}

} // namespace layouts

#endif
