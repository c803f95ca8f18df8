#ifndef TOOLS_LAYOUTS_CHECK_FINDING_H
#define TOOLS_LAYOUTS_CHECK_FINDING_H

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

std::string asLine(const Finding& finding);

// Prints a line for each; returns the exit status, 1 if there is one.
int report(const Findings& findings);

} // namespace layouts

#endif
