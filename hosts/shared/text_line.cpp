#include "text_line.h"

#include <cstdint>
#include <cstdlib>
#include <memory>

#include <unigbrk.h>
#include <uninorm.h>
#include <unistr.h>
#include <uniwidth.h>

namespace host
{

namespace
{

const uint8_t* bytes(const std::string& text)
{
    return reinterpret_cast<const uint8_t*>(text.data());
}

std::string normalized(uninorm_t form, const std::string& utf8)
{
    size_t length = 0;
    const std::unique_ptr<uint8_t, decltype(&std::free)> result(
        u8_normalize(form, bytes(utf8), utf8.size(), nullptr, &length), &std::free);
    return result ? std::string(reinterpret_cast<const char*>(result.get()), length) : "";
}

} // namespace

void TextLine::insert(const std::string& utf8)
{
    if (utf8.empty() || !isUtf8(utf8))
        return;
    // No character composes with more than the letter before it and that one's marks.
    const uint8_t* start = bytes(m_text);
    const uint8_t* letter = u8_grapheme_prev(start + m_caret, start);
    const size_t from = letter == nullptr ? 0 : static_cast<size_t>(letter - start);
    const std::string added = composed(m_text.substr(from, m_caret - from) + utf8);
    m_text.replace(from, m_caret - from, added);
    m_caret = from + added.size();
}

void TextLine::eraseBefore()
{
    ucs4_t character = 0;
    const uint8_t* start = bytes(m_text);
    const uint8_t* previous = u8_prev(&character, start + m_caret, start);
    if (previous == nullptr)
        return;
    const size_t from = static_cast<size_t>(previous - start);
    m_text.erase(from, m_caret - from);
    m_caret = from;
}

void TextLine::eraseAfter()
{
    m_text.erase(m_caret, nextCharacter() - m_caret);
}

void TextLine::moveLeft()
{
    const uint8_t* start = bytes(m_text);
    const uint8_t* previous = u8_grapheme_prev(start + m_caret, start);
    if (previous != nullptr)
        m_caret = static_cast<size_t>(previous - start);
}

void TextLine::moveRight()
{
    m_caret = nextCharacter();
}

void TextLine::clear()
{
    m_text.clear();
    m_caret = 0;
}

size_t TextLine::nextCharacter() const
{
    const uint8_t* start = bytes(m_text);
    const uint8_t* next = u8_grapheme_next(start + m_caret, start + m_text.size());
    return next == nullptr ? m_caret : static_cast<size_t>(next - start);
}

bool isUtf8(const std::string& text)
{
    return u8_check(bytes(text), text.size()) == nullptr;
}

int columns(const std::string& utf8)
{
    return u8_width(bytes(utf8), utf8.size(), "UTF-8");
}

std::string composed(const std::string& utf8)
{
    return normalized(UNINORM_NFC, utf8);
}

std::string decomposed(const std::string& utf8)
{
    return normalized(UNINORM_NFD, utf8);
}

} // namespace host
