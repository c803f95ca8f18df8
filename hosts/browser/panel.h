// The window for a page's dialogs and select fields.
#ifndef HOSTS_BROWSER_PANEL_H
#define HOSTS_BROWSER_PANEL_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <directfb.h>

#include "key_result.h"
#include "screen.h"
#include "text_field.h"
#include "text_line.h"

namespace host
{

// What the page asks the viewer: a dialog of a script, or the choices of a select field.
struct Question {
    struct Choice {
        std::string label;
        bool enabled = true;
    };

    std::string text; // UTF-8, lines ended by '\n'
    std::vector<Choice> choices;
    size_t chosen = 0;
    bool hasLine = false; // a line to type into stands above the choices
    std::string line;     // what it begins with
};

// A window above the page that asks one question at a time.
class Panel
{
public:
    // choice: -1 when the viewer went back.
    using Answer = std::function<void(int choice, const std::string& line)>;

    Panel(const Screen& screen, const std::string& font);

    void ask(Question question, Answer answer);

    // The page does not want to know any more.
    void withdraw();

    bool isOpen() const { return m_window != nullptr; }

    // The question and its choices, one a line.
    std::string text() const;

    // The focus is on the line, which takes what is typed.
    bool isOnLine() const { return isOpen() && m_question.hasLine && m_row == 0; }
    void edit(const Edit& edit);

    // Shows text at the caret as being composed; empty ends that.
    void compose(const std::string& text);

    void move(int rows);
    void choose();
    void goBack();

private:
    void draw();
    void close(int choice);
    void open();
    std::vector<std::string> wrapped(const std::string& text) const;
    int widthOf(const std::string& text) const;
    int rows() const;
    int firstChoiceRow() const { return m_question.hasLine ? 1 : 0; }

    const Screen& m_screen;
    IDirectFBFont* m_font;
    TextField m_field;
    IDirectFBWindow* m_window = nullptr;
    IDirectFBSurface* m_surface = nullptr;
    Question m_question;
    Answer m_answer;
    TextLine m_line;
    std::string m_preedit;
    std::vector<std::string> m_words; // the text in lines that fit
    int m_row = 0;                    // with the focus: the line, then the choices
    int m_height = 0;                 // pixels
};

} // namespace host

#endif
