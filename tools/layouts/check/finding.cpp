// Findings as people read them.
#include "finding.h"

#include <cstdio>

namespace layouts
{

std::string asLine(const Finding& finding)
{
    return finding.file + ": " + finding.where + ": found " + finding.found + ", expected " +
           finding.expected + " [" + finding.rule + "]";
}

int report(const Findings& findings)
{
    for (const Finding& finding : findings)
        std::printf("%s\n", asLine(finding).c_str());
    return findings.empty() ? 0 : 1;
}

} // namespace layouts
