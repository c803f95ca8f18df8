// What all languages share: keys by their codes, pages of candidates, the limit of the preedit.
#include "input_method.h"

#include <algorithm>
#include <utility>

#include "engine.h"
#include "keyboard_constants.h"
#include "text.h"

namespace input_methods
{

using namespace velmora::browser::vkb;

namespace
{

const size_t kFullPreedit = kMaxPreedit;
const size_t kCandidatesLookedAt = 100; // for a short one, where a full preedit makes room

// The one character of a key; 0 for a key with none or with more.
uint32_t characterOf(const OsButton_t& key)
{
    if (key.character > 0)
        return static_cast<uint32_t>(key.character);
    return firstLetterBytes(key.text) == key.text.size() ? firstLetter(key.text) : 0;
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

// The best candidate may stand for everything that is composed, with a word of which only some
// letters are typed; one that is shorter is a word at the beginning.
size_t wordAtTheBeginning(const std::vector<std::string>& candidates)
{
    const size_t whole = letters(candidates.front());
    const auto isShorter = [whole](const std::string& text) { return letters(text) < whole; };
    const auto word = std::find_if(candidates.begin(), candidates.end(), isShorter);
    return word == candidates.end() ? 0 : static_cast<size_t>(word - candidates.begin());
}

} // namespace

InputMethod::InputMethod(std::unique_ptr<Engine> engine)
    : m_engine(std::move(engine)), m_converts(m_engine->converts()), m_page_starts{0}
{
}

InputMethod::~InputMethod() = default;

Answer InputMethod::feed(const OsButton_t& key)
{
    Answer answer;
    // Back, Tab and Enter carry characters of their own, so their codes come first.
    switch (key.keyCode) {
    case KeyCodeBack:
        erase(answer);
        break;
    case KeyCodeClearAll:
        drop();
        break;
    case KeyCodeCaretLeft:
        turn(-1, answer);
        break;
    case KeyCodeCaretRight:
        turn(1, answer);
        break;
    case KeyCodeTab:
    case KeyCodeEnter:
    case KeyCodeDelete:
    case RemoteUp:
    case RemoteDown:
        handOver(answer);
        break;
    default:
        type(characterOf(key), answer);
        break;
    }
    return answer;
}

void InputMethod::type(uint32_t character, Answer& answer)
{
    const bool isDigit = character >= '1' && character <= '9';
    if (m_page_size > 0 && (character == ' ' || isDigit)) {
        take(isDigit ? static_cast<int>(character - '0') : 1, answer);
        answer.used = true; // also a digit without a candidate: it is no text in between
        return;
    }
    if (m_preedit_bytes >= kFullPreedit)
        makeRoom(answer);
    answer.used = character != 0 && m_engine->type(character, answer);
    if (answer.used)
        showFirstPage(answer);
    else
        passOn(character, answer);
}

void InputMethod::passOn(uint32_t character, Answer& answer)
{
    // With nothing composed the engine may remember the letter, for a mark that follows.
    if (character != 0 && m_engine->preedit().empty())
        showFirstPage(answer);
    else
        handOver(answer);
}

void InputMethod::erase(Answer& answer)
{
    answer.used = m_engine->erase(answer);
    if (answer.used)
        showFirstPage(answer);
    else
        handOver(answer);
}

// A preedit of the full length gives way word by word, or at once where there is nothing to choose.
void InputMethod::makeRoom(Answer& answer)
{
    size_t before = letters(m_engine->preedit());
    while (before >= kFullPreedit) {
        takeWordAtTheBeginning(answer);
        const size_t after = letters(m_engine->preedit());
        if (after >= before)
            m_engine->finish(answer);
        before = letters(m_engine->preedit());
    }
}

// The syllable that is still typed is taken back before and typed again afterwards: as it stands,
// candidates at the beginning may be made of its letters.
void InputMethod::takeWordAtTheBeginning(Answer& answer)
{
    const std::string preedit = m_engine->preedit();
    const size_t blank = preedit.rfind(' ');
    const std::string syllable = blank == std::string::npos ? "" : preedit.substr(blank + 1);
    const std::u32string open = characters(syllable);
    for (size_t i = 0; i < open.size(); ++i)
        m_engine->erase(answer);
    std::vector<std::string> candidates;
    m_engine->addCandidates(0, kCandidatesLookedAt, candidates);
    if (!candidates.empty())
        m_engine->take(wordAtTheBeginning(candidates), answer);
    for (const char32_t letter : open)
        m_engine->type(letter, answer);
}

// The key is none of the language's: what is composed goes into the page before it.
void InputMethod::handOver(Answer& answer)
{
    m_engine->finish(answer);
    answer.used = false;
    showFirstPage(answer);
}

Answer InputMethod::choose(int number)
{
    Answer answer;
    take(number, answer);
    return answer;
}

void InputMethod::take(int number, Answer& answer)
{
    if (number < 1 || static_cast<size_t>(number) > m_page_size)
        return show(answer);
    m_engine->take(m_page_starts.back() + static_cast<size_t>(number) - 1, answer);
    answer.used = true;
    showFirstPage(answer);
}

Answer InputMethod::page(int step)
{
    Answer answer;
    if (step < 0 && m_page_starts.size() > 1) {
        m_page_starts.pop_back();
        answer.used = true;
    } else if (step > 0 && m_has_next) {
        m_page_starts.push_back(m_page_starts.back() + m_page_size);
        answer.used = true;
    }
    show(answer);
    return answer;
}

// A caret key.
void InputMethod::turn(int step, Answer& answer)
{
    if (m_page_size == 0)
        return handOver(answer);
    answer = page(step);
    answer.used = true; // also on the last page: the caret does not leave the word
}

Answer InputMethod::finish()
{
    Answer answer;
    m_engine->finish(answer);
    answer.used = true;
    showFirstPage(answer);
    return answer;
}

Answer InputMethod::reset()
{
    drop();
    return Answer();
}

void InputMethod::drop()
{
    m_engine->reset();
    m_page_starts = {0};
    m_page_size = 0;
    m_has_next = false;
    m_preedit_bytes = 0;
}

std::string InputMethod::spell(const std::string& text)
{
    std::string keys;
    std::string composed;
    for (const char32_t character : characters(text)) {
        composed += utf8(character);
        std::string found;
        for (const std::string& spelling : m_engine->spellings(character))
            if (found.empty() && composes(keys + spelling, composed))
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
    for (const char32_t key : characters(keys))
        isUsed = isUsed && m_engine->type(key, answer);
    m_engine->finish(answer);
    reset();
    return isUsed && answer.takeBack == 0 && answer.commit == text;
}

bool InputMethod::isUsed(const std::string& text)
{
    OsButton_t key = {};
    key.text = text;
    reset();
    const Answer answer = feed(key);
    reset();
    return answer.used || !answer.commit.empty();
}

void InputMethod::showFirstPage(Answer& answer)
{
    if (m_converts)
        m_page_starts.resize(1); // the first one starts at 0
    show(answer);
}

void InputMethod::show(Answer& answer)
{
    m_engine->addPreedit(answer.preedit);
    m_preedit_bytes = answer.preedit.size();
    if (m_converts)
        showCandidates(answer);
}

void InputMethod::showCandidates(Answer& answer)
{
    const size_t first = m_page_starts.back();
    const size_t most = kPageCandidates;
    // One more tells whether there are any.
    m_engine->addCandidates(first, most + 1, answer.candidates);
    const size_t found = answer.candidates.size();
    m_page_size = std::min({found, most, roomFor(answer.candidates)});
    m_has_next = m_page_size < found;
    answer.candidates.resize(m_page_size);
    answer.chosen = m_page_size == 0 ? -1 : 0;
    answer.hasPrevious = first > 0;
    answer.hasNext = m_has_next;
}

} // namespace input_methods
