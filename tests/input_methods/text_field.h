#ifndef TESTS_INPUT_METHODS_TEXT_FIELD_H
#define TESTS_INPUT_METHODS_TEXT_FIELD_H

#include <memory>
#include <string>
#include <vector>

#include "input_method.h"
#include "input_methods.h"

namespace input_methods_test
{

const int kBack = 8;
const int kTab = 9;
const int kClearAll = 12;
const int kEnter = 13;
const int kLeft = 37;
const int kRight = 39;
const int kDel = 46;

velmora::browser::vkb::OsButton_t keyWithText(const std::string& text);
velmora::browser::vkb::OsButton_t keyWithCode(int32_t code);

// A host's text field in front of an input method, with the caret always at its end.
class TextField
{
public:
    explicit TextField(input_methods::InputMethod& method) : m_method(method) {}

    // Each character is one key.
    const input_methods::Answer& type(const std::string& characters);
    const input_methods::Answer& press(int32_t code);
    const input_methods::Answer& choose(int number);
    const input_methods::Answer& page(int step);
    const input_methods::Answer& finish();
    const input_methods::Answer& reset();

    const std::string& text() const { return m_text; }
    const input_methods::Answer& last() const { return m_last; }
    void clear() { m_text.clear(); }

    // What is wrong with the last answer, whatever the language; empty when nothing is.
    std::string fault() const;

private:
    const input_methods::Answer& take(input_methods::Answer answer, const std::string& key);
    void eraseLetters(int count);

    input_methods::InputMethod& m_method;
    input_methods::Answer m_last;
    std::string m_text;
};

// The shipped table; lines that it reports are added to lines.
std::unique_ptr<input_methods::InputMethods> shipped(std::vector<std::string>& lines);

// Null and a failed expectation when the layout's engine is not there.
input_methods::InputMethod* find(input_methods::InputMethods& methods, const std::string& layout);

std::vector<std::string> characters(const std::string& utf8);

} // namespace input_methods_test

#endif
