#ifndef TOOLS_LAYOUTS_LANGUAGE_LOCALE_DATA_H
#define TOOLS_LAYOUTS_LANGUAGE_LOCALE_DATA_H

#include <string>
#include <vector>

namespace layouts
{

// What the locale data (CLDR, as ICU brings it) knows of a language, given by its ICU name
// ("sr_Latn"). Everything is empty for a language that it does not have. Texts are UTF-8, NFC.

bool isKnownLocale(const std::string& icuName);

// What the language calls itself, in its own script.
std::string ownName(const std::string& icuName);

// Where most of its speakers live, in English.
std::string mainCountry(const std::string& icuName);

// The lower case letters of the alphabet, and those of names and foreign words. Some are more than
// one code point long.
std::vector<std::string> mainExemplars(const std::string& icuName);
std::vector<std::string> auxiliaryExemplars(const std::string& icuName);

// The letters of a pattern, as in [a-zß]; none when it is no pattern.
std::vector<std::string> lettersOfPattern(const std::string& pattern);

// Quotation marks first, then the signs of ordinary text; single characters. The hyphens U+2010 and
// U+2011 are left out.
std::vector<std::string> punctuation(const std::string& icuName);

// The digits from zero to nine that the language is written with, and those of its own script;
// the same where it has none. ASCII for a language that is not known.
std::vector<std::string> usualDigits(const std::string& icuName);
std::vector<std::string> nativeDigits(const std::string& icuName);

// The words of the names of languages, countries, months and weekdays, each once.
std::vector<std::string> words(const std::string& icuName);

} // namespace layouts

#endif
