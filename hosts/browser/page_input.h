// What is typed, on its way into the page.
#ifndef HOSTS_BROWSER_PAGE_INPUT_H
#define HOSTS_BROWSER_PAGE_INPUT_H

#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "engine.h"
#include "input_method.h"
#include "key_result.h"

namespace host
{

// What the page gets to its focused field, in the order in which it was asked for. The engine
// keeps an order of its own for key events only: a command or a composed text would overtake keys
// that still wait there. So each waits here until the page has handled what went before.
class PageInput
{
public:
    // Both lent.
    PageInput(const Engine& engine, InputMethod& method);
    PageInput(const PageInput&) = delete;
    PageInput& operator=(const PageInput&) = delete;

    // Carries out what a key result asks for.
    void edit(const Edit& edit);

    // One key of a computer's keyboard, down and up; keyCode is the browser's key event code. One
    // that no such keyboard has (a colour key) is made by script in the focused document.
    void key(int keyCode, bool shift = false);

    // Puts text in at the caret as an input method does: in one piece, in the place of what is
    // being composed.
    void commit(const std::string& text);

    // Shows text at the caret as being composed; empty ends that.
    void compose(const std::string& text);

    // Ends the composing of this text where the page has moved on since, with another focus or
    // another text in the field; what stands in a field stays there.
    void leaveWord(const std::string& text) { settleWord(text, Word::Goes); }

    // Ends it in any case: it is text from now on.
    void endWord(const std::string& text) { settleWord(text, Word::Ends); }

    // A mouse's click, at a place in the page's pixels.
    void click(int x, int y);

    // Takes so many characters before the caret away.
    void deleteBefore(int characters);

    // Calls back once the page has handled everything that was asked for before.
    void whenHandled(std::function<void()> done);

    // Another field is entered: an accent typed next does not belong to what was typed before.
    void startField() { m_last.clear(); }

    // The page is gone: what waits is dropped, and whoever waits for it is called back.
    void forget();

private:
    struct Job {
        std::function<void()> run;
        int answers; // to wait for: one, and one for each key event in the engine's own row
    };

    enum class Word { Goes, Ends };
    void settleWord(const std::string& text, Word word);
    void askForWord(const std::string& text);
    void tellPage(const std::string& script);
    void add(int answers, std::function<void()> run);
    void next();
    void ask();
    void handled();
    void insert(const std::string& text, const Edit& edit);
    void send(uint32_t symbol, uint32_t hardwareCode, bool shift);
    void clear();

    const Engine& m_engine;
    InputMethod& m_method;
    std::deque<Job> m_jobs;
    int m_open = 0;                // answers still to come for the running job
    std::shared_ptr<bool> m_valid; // turns false for the answers of a page that is gone
    std::string m_word;            // keyboardWord.state() of field_watch.js, as last asked
    std::string m_last;            // typed just now, for an accent that may follow
};

} // namespace host

#endif
