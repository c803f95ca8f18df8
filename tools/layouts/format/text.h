#ifndef TOOLS_LAYOUTS_FORMAT_TEXT_H
#define TOOLS_LAYOUTS_FORMAT_TEXT_H

#include <cstdint>
#include <string>
#include <vector>

namespace layouts
{

// All texts are UTF-8. Case follows the rules of a language, given by its ICU name ("tr").

bool isUtf8(const std::string& text);
bool isNfc(const std::string& text);
std::string nfc(const std::string& text);
std::string nfd(const std::string& text);

std::vector<char32_t> codePoints(const std::string& text);
std::string fromCodePoint(char32_t codePoint);

// The code point of a text that is exactly one, otherwise 0.
int32_t singleCodePoint(const std::string& text);

// The upper-case form, or the empty string for what has none in everyday writing.
std::string upperCase(const std::string& text, const std::string& language);

std::string lowerCase(const std::string& text, const std::string& language);

// Whether it is one character that everyday writing can need: no picture, and no sign that only
// scholars know and few fonts have.
bool isSign(const std::string& text);
bool isMark(const std::string& text); // one combining character
bool isAsciiAlphanumeric(const std::string& text);

// 0 to 9 for a decimal digit of any script, otherwise -1.
int digitValue(const std::string& text);

// Characters that are typed between letters and have no picture: joiners, and a space of no width.
bool isInvisible(int32_t c);

// U+00E9, for messages about texts that a terminal may not show.
std::string describe(const std::string& text);

} // namespace layouts

#endif
