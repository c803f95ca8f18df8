// Reads the tables of languages.
#include "language.h"

#include <algorithm>
#include <stdexcept>

#include "json_file.h"
#include "key_map.h"
#include "layout_set.h"
#include "locale_data.h"
#include "table.h"
#include "text.h"

namespace layouts
{
namespace
{

const char kAsciiDigits[] = "en"; // the language that is written with them

// A name, and in brackets behind it a variant.
bool isKeyboard(const std::string& text)
{
    const size_t bracket = text.find('(');
    return bracket == std::string::npos
               ? text.find(')') == std::string::npos
               : bracket > 0 && text.find(')') == text.size() - 1 && bracket + 2 < text.size();
}

void checkRow(const TableRow& row, const std::string& letters)
{
    const std::vector<std::string>& fields = row.fields;
    for (size_t i = 0; i < 5; ++i)
        if (fields[i].empty())
            row.refuse("nothing in column " + std::to_string(i + 1),
                       "a text; see the file's first lines");
    if (!isLayoutName(fields[1]))
        row.refuse("the name " + quoted(fields[1]),
                   "the middle of a file name, without \"/\" and \"..\", and not \"Name\"");
    if (worksKeyboard(fields[2]))
        row.refuse("the label " + quoted(fields[2]),
                   "another one, as this word does something else");
    if (!isKeyboard(fields[3]))
        row.refuse("the keyboard " + quoted(fields[3]),
                   "a name in the keyboard database, a variant in brackets, as in de(neo)");
    if (!letters.empty() && lettersOfPattern(letters).empty())
        row.refuse("the letters " + quoted(letters), "a pattern with at least one, as in [a-zß]");
}

Language languageOf(const TableRow& row, const std::string& folder)
{
    const std::vector<std::string>& fields = row.fields;
    const std::string letters = fields.size() > 5 ? fields[5] : std::string();
    checkRow(row, letters);
    const std::string& keyboard = fields[3];
    const size_t bracket = keyboard.find('(');
    const std::string variant = bracket == std::string::npos
                                    ? std::string()
                                    : keyboard.substr(bracket + 1, keyboard.size() - bracket - 2);
    const std::string own = fields.size() > 6 ? fields[6] : std::string();
    return {fields[0], fields[1], fields[2], keyboard.substr(0, bracket),
            variant,   fields[4], letters,   own,
            folder,    row.place};
}

} // namespace

std::vector<Language> readLanguages(const std::string& file)
{
    std::vector<Language> languages;
    for (const TableRow& row : readTable(file, 5, 7)) {
        const Language language = languageOf(row, file.substr(0, file.rfind('/') + 1) + "xkb");
        if (findLanguage(languages, language.name) != nullptr)
            row.refuse(language.name + " again", "each layout once");
        languages.push_back(language);
    }
    if (languages.empty())
        throw std::runtime_error(file + ": found no language, expected one a line");
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
    for (const TableRow& row : readTable(file, 3, 3))
        result.push_back({row.fields[0], row.fields[1], row.fields[2]});
    return result;
}

std::vector<std::string> mainLetters(const Language& language)
{
    std::vector<std::string> letters;
    if (language.letters.empty()) {
        letters = mainExemplars(language.icuName);
    } else {
        letters = lettersOfPattern(language.letters);
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
        return {};
    return auxiliaryExemplars(language.icuName);
}

std::vector<std::string> wordsOf(const Language& language)
{
    return language.letters.empty() ? words(language.icuName) : std::vector<std::string>();
}

std::vector<std::string> punctuationOf(const Language& language)
{
    return language.letters.empty() ? punctuation(language.icuName) : std::vector<std::string>();
}

std::vector<std::string> digitsOf(const Language& language)
{
    return usualDigits(language.letters.empty() ? language.icuName : kAsciiDigits);
}

std::vector<std::string> nativeDigitsOf(const Language& language)
{
    if (language.letters.empty())
        return nativeDigits(language.icuName);
    std::vector<std::string> digits;
    for (const std::string& letter : lettersOfPattern(language.letters))
        if (digitValue(letter) == static_cast<int>(digits.size()))
            digits.push_back(letter);
    return digits.size() == 10 ? digits : nativeDigits(kAsciiDigits);
}

} // namespace layouts
