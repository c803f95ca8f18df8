// layouts list: writes docs/languages.md.
#include <cstdio>
#include <map>
#include <string>

#include <CLI/CLI.hpp>

#include "commands.h"
#include "coverage.h"
#include "key_map.h"
#include "layout_set.h"
#include "locale_data.h"
#include "resources.h"
#include "usage.h"

namespace layouts
{
namespace
{

const char kHead[] =
    "# Languages\n\n"
    "`layouts list` writes this page.\n\n"
    "- Country: where most of its speakers live, by the locale data.\n"
    "- Font: one that has all labels of the layout; [layouts.md](layouts.md) names its package.\n"
    "- Presses: arrows and OK for each character of the language's words, blanks included. The\n"
    "  words are the locale data's names of languages, countries, months and weekdays, in lower\n"
    "  case; \"-\" where it has none, or an input method makes the text of the keys.\n"
    "- Behind Alt: of 100 characters of these words, and the letters of the alphabet that need it.\n"
    "- Missing: words that cannot be typed.\n\n"
    "| name | own name | country | locale | keyboard | font | presses | behind Alt | missing |\n"
    "| --- | --- | --- | --- | --- | --- | --- | --- | --- |\n";

std::string lettersBehindAlt(const KeyMap& keyMap, const Language& language)
{
    const std::map<std::string, Place> places = placesOf(keyMap);
    std::string letters;
    for (const std::string& letter : mainLetters(language)) {
        const auto place = places.find(letter);
        if (place != places.end() && place->second.face->symbol)
            letters += " " + letter;
    }
    return letters;
}

std::string fixed(double value, int digits)
{
    char text[16];
    std::snprintf(text, sizeof text, "%.*f", digits, value);
    return text;
}

void printRow(const Language& language, const KeyMap& keyMap)
{
    const Usage usage = usageOf(keyMap, language);
    const bool hasWords = usage.words > 0;
    const std::string variant =
        language.xkbVariant.empty() ? std::string() : "(" + language.xkbVariant + ")";
    const std::string behind = (hasWords ? fixed(100 * usage.behindAlt, 1) : std::string("-")) +
                               lettersBehindAlt(keyMap, language);
    std::printf("| %s | %s | %s | %s | %s%s | %s | %s | %s | %s |\n", language.name.c_str(),
                ownName(language.icuName).c_str(), mainCountry(language.icuName).c_str(),
                language.icuName.c_str(), language.xkbLayout.c_str(), variant.c_str(),
                language.font.c_str(), hasWords ? fixed(usage.presses, 2).c_str() : "-",
                behind.c_str(), hasWords ? std::to_string(usage.untypable.size()).c_str() : "-");
}

void run(const Resources& resources)
{
    std::printf("%s", kHead);
    for (const Language& language : readLanguages(resources.table()))
        printRow(language, readKeyMap(keyMapFile(resources.folder(), language.name)));
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
