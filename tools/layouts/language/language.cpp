// Reads the table of languages, and letters from the locale data.
#include "language.h"

#include <algorithm>
#include <memory>
#include <sstream>
#include <stdexcept>

#include <unicode/locid.h>
#include <unicode/ulocdata.h>
#include <unicode/uniset.h>
#include <unicode/usetiter.h>

#include "json_file.h"
#include "text.h"

namespace layouts
{
namespace
{

constexpr size_t kColumns = 5; // and one more for what the locale data lacks

std::vector<std::string> split(const std::string& line)
{
    std::vector<std::string> fields;
    std::istringstream in(line);
    for (std::string field; std::getline(in, field, '\t');)
        fields.push_back(field);
    return fields;
}

Language parse(const std::vector<std::string>& fields)
{
    const std::string& keyboard = fields[3];
    const size_t bracket = keyboard.find('(');
    const std::string variant = bracket == std::string::npos
                                    ? std::string()
                                    : keyboard.substr(bracket + 1, keyboard.size() - bracket - 2);
    return {fields[0],
            fields[1],
            fields[2],
            keyboard.substr(0, bracket),
            variant,
            fields[4],
            fields.size() > kColumns ? fields[kColumns] : std::string(),
            std::string()};
}

std::vector<std::string> lettersOf(const icu::UnicodeSet& set)
{
    std::vector<std::string> letters;
    icu::UnicodeSetIterator each(set);
    while (each.next()) {
        std::string letter;
        letters.push_back(nfc(each.getString().toUTF8String(letter)));
    }
    return letters;
}

// A pattern as the table's sixth column has it; nothing when it is none.
std::vector<std::string> lettersOf(const std::string& pattern)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeSet set(icu::UnicodeString::fromUTF8(pattern), status);
    return U_SUCCESS(status) ? lettersOf(set) : std::vector<std::string>();
}

std::vector<std::string> exemplars(const std::string& icuName, ULocaleDataExemplarSetType type)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<ULocaleData, void (*)(ULocaleData*)> data(
        ulocdata_open(icuName.c_str(), &status), ulocdata_close);
    // A language without data of its own would get that of this machine's.
    if (U_FAILURE(status) || status == U_USING_DEFAULT_WARNING)
        return std::vector<std::string>();
    const std::unique_ptr<USet, void (*)(USet*)> set(
        ulocdata_getExemplarSet(data.get(), nullptr, 0, type, &status), uset_close);
    if (U_FAILURE(status))
        return std::vector<std::string>();
    return lettersOf(*icu::UnicodeSet::fromUSet(set.get()));
}

} // namespace

std::vector<Language> readLanguages(const std::string& file)
{
    std::vector<Language> languages;
    std::istringstream in(readFile(file));
    int number = 0;
    for (std::string line; std::getline(in, line);) {
        ++number;
        if (line.empty() || line[0] == '#')
            continue;
        const std::vector<std::string> fields = split(line);
        if (fields.size() < kColumns || fields.size() > kColumns + 1)
            throw std::runtime_error(file + ": line " + std::to_string(number) + ": found " +
                                     std::to_string(fields.size()) + " columns, expected " +
                                     std::to_string(kColumns) +
                                     " with a tab between them; see the file's first lines");
        Language language = parse(fields);
        language.xkbFolder = file.substr(0, file.rfind('/') + 1) + "xkb";
        if (!language.letters.empty() && lettersOf(language.letters).empty())
            throw std::runtime_error(file + ": line " + std::to_string(number) +
                                     ": found the letters " + quoted(language.letters) +
                                     ", expected a pattern with at least one, as in [a-zß]");
        languages.push_back(language);
    }
    return languages;
}

const Language* findLanguage(const std::vector<Language>& languages, const std::string& name)
{
    const auto found =
        std::find_if(languages.begin(), languages.end(), [&](const Language& language) {
            return language.name == name || language.icuName == name;
        });
    return found == languages.end() ? nullptr : &*found;
}

std::vector<LeftOut> readLeftOut(const std::string& file)
{
    std::vector<LeftOut> result;
    std::istringstream in(readFile(file));
    for (std::string line; std::getline(in, line);) {
        const std::vector<std::string> fields = split(line);
        if (fields.size() == 2 && line[0] != '#')
            result.push_back({fields[0], fields[1]});
    }
    return result;
}

std::vector<std::string> mainLetters(const Language& language)
{
    std::vector<std::string> letters;
    if (language.letters.empty()) {
        letters = exemplars(language.icuName, ULOCDATA_ES_STANDARD);
    } else {
        letters = lettersOf(language.letters);
    }
    if (letters.empty())
        throw std::runtime_error(language.name + ": the locale data has no letters for \"" +
                                 language.icuName +
                                 "\", expected them in the table's sixth column, as in [a-zß]");
    return letters;
}

std::vector<std::string> auxiliaryLetters(const Language& language)
{
    // Those of the table are all that the keys are to have.
    if (!language.letters.empty())
        return std::vector<std::string>();
    return exemplars(language.icuName, ULOCDATA_ES_AUXILIARY);
}

} // namespace layouts
