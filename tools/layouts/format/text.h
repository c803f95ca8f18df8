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

// The joiners that some scripts type between letters; they have no picture of their own.
constexpr char32_t kNonJoiner = 0x200C;
constexpr char32_t kJoiner = 0x200D;
inline bool isJoiner(int32_t c)
{
    return c == kNonJoiner || c == kJoiner;
}

// U+00E9, for messages about texts that a terminal may not show.
std::string describe(const std::string& text);

} // namespace layouts

#endif
