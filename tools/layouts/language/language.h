#ifndef TOOLS_LAYOUTS_LANGUAGE_LANGUAGE_H
#define TOOLS_LAYOUTS_LANGUAGE_LANGUAGE_H

#include <string>
#include <vector>

namespace layouts
{

// One line of the language table.
struct Language {
    std::string icuName;        // "sr_Latn"
    std::string name;           // as the catalogue and the file name have it
    std::string label;          // on the language key
    std::string xkbLayout;      // in the keyboard database
    std::string xkbVariant;     // or empty
    std::string font;           // a font file that has all labels of the layout
    std::string letters;        // "[a-zß]", for a language that the locale data lacks; else empty
    std::string ownName = "";   // where the locale data has none of its own; or empty
    std::string xkbFolder = ""; // of keyboards that the database lacks, beside the table; or empty
    std::string place = "";     // file and line of the table, for messages
};

// Throws std::runtime_error with the line that is wrong.
std::vector<Language> readLanguages(const std::string& file);

const Language* findLanguage(const std::vector<Language>& languages, const std::string& name);

// What has no layout, and why.
struct LeftOut {
    std::string icuName;
    std::string name;
    std::string reason;
};
std::vector<LeftOut> readLeftOut(const std::string& file);

// The letters that the language is written with, lower case: the main ones, from the table or
// the locale data, and those that only names and foreign words need. Some are more than one code
// point long. Throws std::runtime_error when nobody knows the main ones.
std::vector<std::string> mainLetters(const Language& language);
std::vector<std::string> auxiliaryLetters(const Language& language);

// What else the locale data has of the language: words, punctuation, and from zero to nine the
// digits that it is written with and those of its own script. A language whose letters the table
// has gets ASCII digits, those of its own that are among the letters, and nothing else.
std::vector<std::string> wordsOf(const Language& language);
std::vector<std::string> punctuationOf(const Language& language);
std::vector<std::string> digitsOf(const Language& language);
std::vector<std::string> nativeDigitsOf(const Language& language);

} // namespace layouts

#endif
