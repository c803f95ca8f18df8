// The check of any two files ends, without an exception, and each finding says something.
#include <cstdlib>

#include "checker.h"
#include "input.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const layouts::Checker kChecker(SCHEMAS);
    const LayoutTexts texts = split(data, size);
    const layouts::LayoutSet set = {{layouts::kCatalogueName, texts.catalogue},
                                    {layouts::keyMapName("English"), texts.keyMap}};
    for (const layouts::Finding& finding : kChecker.check(set, layouts::CheckOptions()))
        if (finding.file.empty() || finding.where.empty() || finding.found.empty() ||
            finding.expected.empty() || finding.rule.empty())
            std::abort();
    return 0;
}
