// UTF-8 for the input methods, by libunistring.
#include "text.h"

#include <cstdlib>
#include <memory>

#include <uninorm.h>
#include <unistr.h>

namespace input_methods
{

namespace
{

const uint8_t* bytes(const std::string& text)
{
    return reinterpret_cast<const uint8_t*>(text.data());
}

} // namespace

std::string utf8(uint32_t character)
{
    uint8_t text[6];
    const int length = u8_uctomb(text, character, sizeof text);
    return length > 0 ? std::string(reinterpret_cast<const char*>(text), size_t(length)) : "";
}

size_t letters(const std::string& utf8)
{
    return u8_mbsnlen(bytes(utf8), utf8.size());
}

std::u32string characters(const std::string& utf8)
{
    size_t length = 0;
    const std::unique_ptr<uint32_t, decltype(&std::free)> result(
        u8_to_u32(bytes(utf8), utf8.size(), nullptr, &length), &std::free);
    return result ? std::u32string(result.get(), result.get() + length) : U"";
}

uint32_t firstLetter(const std::string& utf8)
{
    ucs4_t character = 0;
    if (!utf8.empty())
        u8_mbtouc(&character, bytes(utf8), utf8.size());
    return character;
}

size_t firstLetterBytes(const std::string& utf8)
{
    ucs4_t character = 0;
    const int length = utf8.empty() ? 0 : u8_mbtouc(&character, bytes(utf8), utf8.size());
    return length > 0 ? static_cast<size_t>(length) : 0;
}

size_t lastLetterBytes(const std::string& utf8)
{
    ucs4_t character = 0;
    const uint8_t* end = bytes(utf8) + utf8.size();
    const uint8_t* last = u8_prev(&character, end, bytes(utf8));
    return last == nullptr ? 0 : static_cast<size_t>(end - last);
}

std::string composed(const std::string& utf8)
{
    size_t length = 0;
    const std::unique_ptr<uint8_t, decltype(&std::free)> result(
        u8_normalize(UNINORM_NFC, bytes(utf8), utf8.size(), nullptr, &length), &std::free);
    return result ? std::string(reinterpret_cast<const char*>(result.get()), length) : "";
}

} // namespace input_methods
