// What all languages share: keys by their codes, pages of candidates, the limit of the preedit.
#include "input_method.h"

#include <algorithm>
#include <utility>

#include "engine.h"
#include "text.h"

namespace input_methods
{

using velmora::browser::vkb::OsButton_t;

namespace
{

enum class KeyMeaning { Text, Back, Clear, PreviousPage, NextPage, Host };

struct MeaningOfCode {
    int32_t keyCode; // the browser's key event code
    KeyMeaning meaning;
};

// Back, Tab and Enter carry characters of their own, so their codes come first.
const MeaningOfCode kMeanings[] = {
    {8, KeyMeaning::Back},      {9, KeyMeaning::Host},          {12, KeyMeaning::Clear},
    {13, KeyMeaning::Host},     {37, KeyMeaning::PreviousPage}, {38, KeyMeaning::Host},
    {39, KeyMeaning::NextPage}, {40, KeyMeaning::Host},         {46, KeyMeaning::Host},
};

KeyMeaning meaningOf(int32_t keyCode)
{
    for (const MeaningOfCode& entry : kMeanings)
        if (entry.keyCode == keyCode)
            return entry.meaning;
    return KeyMeaning::Text;
}

std::string textOf(const OsButton_t& key)
{
    return key.character > 0 ? utf8(static_cast<uint32_t>(key.character)) : key.text;
}

int digitOf(const std::string& text)
{
    const bool isDigit = text.size() == 1 && text[0] >= '1' && text[0] <= '9';
    return isDigit ? text[0] - '0' : 0;
}

// How many of the candidates fit on a page; the first one always does.
size_t roomFor(const std::vector<std::string>& candidates)
{
    size_t room = kPageLetters;
    for (size_t i = 0; i < candidates.size(); ++i) {
        const size_t length = letters(candidates[i]);
        if (length > room && i > 0)
            return i;
        room -= std::min(length, room);
    }
    return candidates.size();
}

} // namespace

InputMethod::InputMethod(std::unique_ptr<Engine> engine)
    : m_engine(std::move(engine)), m_page_starts{0}
{
}

InputMethod::~InputMethod() = default;

Answer InputMethod::feed(const OsButton_t& key)
{
    Answer answer;
    switch (meaningOf(key.keyCode)) {
    case KeyMeaning::Text:
        return type(textOf(key));
    case KeyMeaning::Back:
        answer.used = m_engine->erase(answer);
        if (!answer.used)
            return handOver();
        m_page_starts = {0};
        return shown(std::move(answer));
    case KeyMeaning::Clear:
        return reset();
    case KeyMeaning::PreviousPage:
    case KeyMeaning::NextPage:
        if (m_page.empty())
            return handOver();
        answer = page(meaningOf(key.keyCode) == KeyMeaning::NextPage ? 1 : -1);
        answer.used = true; // also on the last page: the caret does not leave the word
        return answer;
    case KeyMeaning::Host:
        break;
    }
    return handOver();
}

Answer InputMethod::type(const std::string& text)
{
    const int digit = digitOf(text);
    if (!m_page.empty() && (text == " " || digit != 0)) {
        Answer answer = choose(digit == 0 ? 1 : digit);
        answer.used = true; // also a digit without a candidate: it is no text in between
        return answer;
    }
    Answer answer;
    makeRoom(answer);
    if (letters(text) == 1 && m_engine->type(text, answer)) {
        answer.used = true;
        m_page_starts = {0};
        return shown(std::move(answer));
    }
    // With nothing composed the engine may remember the letter, for a mark that follows.
    if (letters(text) == 1 && m_engine->preedit().empty()) {
        m_page_starts = {0};
        return shown(answer);
    }
    Answer rest = handOver();
    rest.commit.insert(0, answer.commit);
    return rest;
}

// A preedit of the full length gives way word by word, or at once where there is nothing to choose.
void InputMethod::makeRoom(Answer& answer)
{
    if (m_preedit_bytes < static_cast<size_t>(kMaxPreedit))
        return;
    size_t before = letters(m_engine->preedit());
    while (before >= static_cast<size_t>(kMaxPreedit)) {
        if (!m_engine->candidates(0, 1).empty())
            m_engine->take(0, answer);
        const size_t after = letters(m_engine->preedit());
        if (after >= before)
            m_engine->finish(answer);
        before = letters(m_engine->preedit());
    }
}

// The key is none of the language's: what is composed goes into the page before it.
Answer InputMethod::handOver()
{
    Answer answer = finish();
    answer.used = false;
    return answer;
}

Answer InputMethod::choose(int number)
{
    Answer answer;
    if (number < 1 || static_cast<size_t>(number) > m_page.size())
        return shown(std::move(answer));
    m_engine->take(m_page_starts.back() + static_cast<size_t>(number) - 1, answer);
    answer.used = true;
    m_page_starts = {0};
    return shown(std::move(answer));
}

Answer InputMethod::page(int step)
{
    Answer answer;
    if (step < 0 && m_page_starts.size() > 1) {
        m_page_starts.pop_back();
        answer.used = true;
    } else if (step > 0 && m_has_next) {
        m_page_starts.push_back(m_page_starts.back() + m_page.size());
        answer.used = true;
    }
    return shown(std::move(answer));
}

Answer InputMethod::finish()
{
    Answer answer;
    m_engine->finish(answer);
    answer.used = true;
    m_page_starts = {0};
    return shown(std::move(answer));
}

Answer InputMethod::reset()
{
    m_engine->reset();
    m_page_starts = {0};
    m_page.clear();
    m_has_next = false;
    m_preedit_bytes = 0;
    return Answer();
}

std::string InputMethod::spell(const std::string& text)
{
    std::string keys;
    for (size_t end = 0; end < text.size();) {
        const size_t length = firstLetterBytes(text.substr(end));
        const std::string character = text.substr(end, length);
        end += length;
        std::string found;
        for (const std::string& spelling : m_engine->spellings(character))
            if (found.empty() && composes(keys + spelling, text.substr(0, end)))
                found = spelling;
        if (found.empty())
            return "";
        keys += found;
    }
    return keys;
}

bool InputMethod::composes(const std::string& keys, const std::string& text)
{
    reset();
    Answer answer;
    bool isUsed = true;
    for (size_t i = 0; isUsed && i < keys.size();) {
        const size_t length = firstLetterBytes(keys.substr(i));
        isUsed = m_engine->type(keys.substr(i, length), answer);
        i += length;
    }
    m_engine->finish(answer);
    reset();
    return isUsed && answer.takeBack == 0 && answer.commit == text;
}

bool InputMethod::isUsed(const std::string& text)
{
    reset();
    const Answer answer = type(text);
    reset();
    return answer.used || !answer.commit.empty();
}

Answer InputMethod::shown(Answer answer)
{
    const size_t first = m_page_starts.back();
    m_page =
        m_engine->candidates(first, kPageCandidates + 1); // one more tells whether there are any
    const size_t found = m_page.size();
    m_page.resize(std::min({found, static_cast<size_t>(kPageCandidates), roomFor(m_page)}));
    m_has_next = m_page.size() < found;
    answer.preedit = m_engine->preedit();
    m_preedit_bytes = answer.preedit.size();
    answer.candidates = m_page;
    answer.chosen = m_page.empty() ? -1 : 0;
    answer.hasPrevious = first > 0;
    answer.hasNext = m_has_next;
    return answer;
}

} // namespace input_methods
