// layouts list: writes docs/languages.md.
#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <vector>

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
    "`layouts list` writes this page; [layouts.md](layouts.md) says how to pick and to add one.\n\n"
    "- Layout: what `layouts install` takes, as it takes own name and code.\n"
    "- Country: where most of its speakers live, by the locale data.\n"
    "- Presses: arrows and OK for each character of the language's words, blanks included. The\n"
    "  words are the locale data's names of languages, countries, months and weekdays, in lower\n"
    "  case; \"-\" where it has none, or where an input method makes the text of the keys.\n"
    "- Behind Alt: of 100 characters of these words, and the letters of the alphabet that need it.\n"
    "- Missing: how many of the words cannot be typed, and letters of foreign words and names, by\n"
    "  the locale data, that have no key. The hyphens U+2010 and U+2011, which it lists for nearly\n"
    "  all languages, have none either: \"-\" stands for them, as the fonts draw all three alike.\n"
    "- Font: one that has all labels of the layout.\n"
    "- Keyboard: the computer keyboard that it is made from, by its name in the keyboard database.\n\n";

const char kColumns[] =
    "| layout | own name | code | country | presses | behind Alt | missing | font | keyboard |\n"
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

std::string missingLetters(const KeyMap& keyMap, const Language& language)
{
    std::string letters;
    for (const Spelling& spelling : spellAll(keyMap, auxiliaryLetters(language)))
        if (spelling.keys.empty())
            letters += " " + spelling.text;
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
    const std::string none = "-";
    const std::string variant =
        language.xkbVariant.empty() ? std::string() : "(" + language.xkbVariant + ")";
    const std::string own = language.ownName.empty() ? ownName(language.icuName) : language.ownName;
    const std::string country = mainCountry(language.icuName);
    const std::vector<std::string> fields = {
        language.name,
        own.empty() ? none : own,
        language.icuName,
        country.empty() ? none : country,
        hasWords ? fixed(usage.presses, 2) : none,
        (hasWords ? fixed(100 * usage.behindAlt, 1) : none) + lettersBehindAlt(keyMap, language),
        (hasWords ? std::to_string(usage.untypable.size()) : none) +
            missingLetters(keyMap, language),
        language.font,
        language.xkbLayout + variant};
    for (const std::string& field : fields)
        std::printf("| %s ", field.c_str());
    std::printf("|\n");
}

void run(const Resources& resources)
{
    const std::vector<Language> languages = readLanguages(resources.table());
    const std::vector<LeftOut> others = readLeftOut(resources.leftOut());
    std::set<std::string> codes;
    for (const Language& language : languages)
        codes.insert(language.icuName.substr(0, language.icuName.find('_')));
    std::printf("%sThere are %zu layouts for %zu languages.\n\n%s", kHead, languages.size(),
                codes.size(), kColumns);
    for (const Language& language : languages)
        printRow(language, readKeyMap(keyMapFile(resources.folder(), language.name)));
    std::printf("\n## Left out\n\n"
                "Of the languages that the locale data or the keyboard database has.\n\n"
                "| code | language | why |\n| --- | --- | --- |\n");
    for (const LeftOut& leftOut : others)
        std::printf("| %s | %s | %s |\n", leftOut.icuName.c_str(), leftOut.name.c_str(),
                    leftOut.reason.c_str());
}

} // namespace

void addList(CLI::App& app, const Resources& resources, int&)
{
    app.add_subcommand("list", "List the languages, as in docs/languages.md")
        ->callback([&resources] { run(resources); });
}

} // namespace layouts
