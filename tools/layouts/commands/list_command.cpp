// layouts list: writes docs/languages.md.
#include <cstdio>

#include <CLI/CLI.hpp>

#include "commands.h"
#include "resources.h"

namespace layouts
{
namespace
{

void run(const Resources& resources)
{
    std::printf(
        "# Languages\n\n`layouts list` writes this page. The font is one that has all labels of "
        "the layout;\n[layouts.md](layouts.md) names its package.\n\n"
        "| name | locale | keyboard | font |\n| --- | --- | --- | --- |\n");
    for (const Language& language : readLanguages(resources.table())) {
        const std::string variant =
            language.xkbVariant.empty() ? std::string() : "(" + language.xkbVariant + ")";
        std::printf("| %s | %s | %s%s | %s |\n", language.name.c_str(), language.icuName.c_str(),
                    language.xkbLayout.c_str(), variant.c_str(), language.font.c_str());
    }
    std::printf("\n## Left out\n\n| locale | why |\n| --- | --- |\n");
    for (const LeftOut& leftOut : readLeftOut(resources.leftOut()))
        std::printf("| %s | %s |\n", leftOut.icuName.c_str(), leftOut.reason.c_str());
}

} // namespace

void addList(CLI::App& app, const Resources& resources, int&)
{
    app.add_subcommand("list", "List the languages, as in docs/languages.md")
        ->callback([&resources] { run(resources); });
}

} // namespace layouts
