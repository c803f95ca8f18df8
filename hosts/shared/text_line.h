#ifndef HOSTS_SHARED_TEXT_LINE_H
#define HOSTS_SHARED_TEXT_LINE_H

#include <cstddef>
#include <string>

namespace host
{

// One line of text with a caret: what a page keeps for its text field. The text is UTF-8 and
// composed (NFC), so a letter and an accent typed one after the other become one character.
class TextLine
{
public:
    // At the caret, which moves behind it. Text that is no valid UTF-8 is not taken.
    void insert(const std::string& utf8);

    // One code point: of a letter with its marks the last mark goes first.
    void eraseBefore();

    // One character as a reader counts them, marks included.
    void eraseAfter();
    void moveLeft();
    void moveRight();
    void clear();

    const std::string& text() const { return m_text; }
    std::string beforeCaret() const { return m_text.substr(0, m_caret); }

private:
    size_t nextCharacter() const;

    std::string m_text;
    size_t m_caret = 0; // bytes, always between two characters
};

// Terminal columns that the text takes.
int columns(const std::string& utf8);

bool isUtf8(const std::string& text);

// Composed (NFC) and decomposed (NFD) forms; invalid UTF-8 gives an empty string.
std::string composed(const std::string& utf8);
std::string decomposed(const std::string& utf8);

} // namespace host

#endif
