// What a host does with an input method's answers, without a keyboard.
#include "text_field.h"

#include <gtest/gtest.h>
#include <unistr.h>

#include "text.h"

namespace input_methods_test
{

using input_methods::Answer;
using input_methods::InputMethod;
using input_methods::InputMethods;
using velmora::browser::vkb::OsButton_t;

namespace
{

bool isUtf8(const std::string& text)
{
    return u8_check(reinterpret_cast<const uint8_t*>(text.data()), text.size()) == nullptr;
}

} // namespace

OsButton_t keyWithText(const std::string& text)
{
    OsButton_t key = {};
    key.text = text;
    return key;
}

OsButton_t keyWithCode(int32_t code)
{
    OsButton_t key = {};
    key.keyCode = code;
    key.character = code; // as the layouts have it for Back, Tab and Enter
    return key;
}

const Answer& TextField::type(const std::string& text)
{
    for (const std::string& character : characters(text))
        take(m_method.feed(keyWithText(character)), character);
    return m_last;
}

const Answer& TextField::press(int32_t code)
{
    take(m_method.feed(keyWithCode(code)), "");
    if (!m_last.used && code == kBack)
        eraseLetters(1);
    if (!m_last.used && code == kClearAll)
        m_text.clear();
    return m_last;
}

const Answer& TextField::choose(int number)
{
    return take(m_method.choose(number), "");
}

const Answer& TextField::page(int step)
{
    return take(m_method.page(step), "");
}

const Answer& TextField::finish()
{
    return take(m_method.finish(), "");
}

const Answer& TextField::reset()
{
    return take(m_method.reset(), "");
}

const Answer& TextField::take(Answer answer, const std::string& key)
{
    m_last = std::move(answer);
    eraseLetters(m_last.takeBack);
    m_text += m_last.commit;
    if (!m_last.used)
        m_text += key;
    return m_last;
}

void TextField::eraseLetters(int count)
{
    for (; count > 0; --count)
        m_text.resize(m_text.size() - input_methods::lastLetterBytes(m_text));
}

std::string TextField::fault() const
{
    const int count = static_cast<int>(m_last.candidates.size());
    for (const std::string& candidate : m_last.candidates)
        if (candidate.empty() || !isUtf8(candidate))
            return "a candidate that is empty or no UTF-8";
    if (!isUtf8(m_last.commit) || !isUtf8(m_last.preedit))
        return "text that is no UTF-8";
    if (count > input_methods::kPageCandidates)
        return "more candidates than digits";
    if (m_last.chosen != (count == 0 ? -1 : 0))
        return "a chosen candidate that is not the first";
    if (count == 0 && (m_last.hasNext || m_last.hasPrevious))
        return "pages without candidates";
    if (count > 0 && m_last.preedit.empty())
        return "candidates for nothing";
    return "";
}

std::unique_ptr<InputMethods> shipped(std::vector<std::string>& lines)
{
    input_methods::Settings settings;
    settings.dataFolder = DATA_FOLDER;
    settings.report = [&lines](const std::string& line) { lines.push_back(line); };
    return std::make_unique<InputMethods>(settings);
}

InputMethod* find(InputMethods& methods, const std::string& layout)
{
    InputMethod* method = methods.find(layout, input_methods::Field::Text);
    EXPECT_NE(method, nullptr) << methods.problem(layout);
    return method;
}

std::vector<std::string> characters(const std::string& utf8)
{
    std::vector<std::string> found;
    const uint8_t* bytes = reinterpret_cast<const uint8_t*>(utf8.data());
    for (size_t from = 0; from < utf8.size();) {
        const size_t length = static_cast<size_t>(u8_mblen(bytes + from, utf8.size() - from));
        found.push_back(utf8.substr(from, length));
        from += length;
    }
    return found;
}

} // namespace input_methods_test
