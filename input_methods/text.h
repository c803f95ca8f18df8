#ifndef INPUT_METHODS_TEXT_H
#define INPUT_METHODS_TEXT_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace input_methods
{

// Empty for a number that is no character.
std::string utf8(uint32_t character);

// Code points.
size_t letters(const std::string& utf8);

// Its code points; none when it is not UTF-8.
std::u32string characters(const std::string& utf8);

// The first code point; 0 for an empty text.
uint32_t firstLetter(const std::string& utf8);

// Bytes of the first code point; 0 for an empty text.
size_t firstLetterBytes(const std::string& utf8);

// Bytes of the last code point; 0 for an empty text.
size_t lastLetterBytes(const std::string& utf8);

std::string composed(const std::string& utf8); // NFC

} // namespace input_methods

#endif
