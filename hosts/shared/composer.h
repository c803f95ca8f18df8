// Between the keyboard's key results and a field: languages that compose or convert.
#ifndef HOSTS_SHARED_COMPOSER_H
#define HOSTS_SHARED_COMPOSER_H

#include <memory>
#include <string>

#include "input_methods.h"

#include "candidate_bar.h"

namespace host
{

// What becomes of a key, in this order: so many characters before the caret go, the text comes in,
// and what was not used is the host's.
struct Composed {
    bool used = false;
    int takeBack = 0; // code points
    std::string commit;
};

class Composer
{
public:
    // Everything is lent. Lines about what is missing go to settings' report.
    Composer(const Screen& screen, const std::string& font, input_methods::Settings settings);

    // What the next field is for; a word that is being composed is dropped.
    void enterField(input_methods::Field field);

    // The layout that the keyboard shows. Another one ends the word.
    Composed setLayout(const std::string& layout);

    Composed feed(const velmora::browser::vkb::OsButton_t& key);

    // The keyboard is hidden or the field is left: what is composed is committed.
    Composed finish();

    // What is composed, for the field to show at its caret.
    const std::string& preedit() const { return m_shown.preedit; }

    // What the bar shows: the candidates of a page, and the one with the focus or -1.
    const input_methods::Answer& shown() const { return m_shown; }
    int focus() const { return m_focus; }

    // Whether there will be something to choose in this layout.
    bool mayOffer(const std::string& layout) const { return m_methods.offersCandidates(layout); }

    // Whether there is something to choose, and whether the focus is among it. While it is there,
    // arrows and OK go to pressInBar.
    bool offers() const { return !m_shown.candidates.empty(); }
    bool isInBar() const { return m_focus != CandidateBar::kNoFocus; }
    void enterBar();
    void leaveBar();
    Composed pressInBar(int keyCode);
    Composed choose(int number); // from 1

private:
    Composed take(input_methods::Answer answer);
    void moveInBar(int step);
    void turnPage(int step);

    input_methods::InputMethods m_methods;
    CandidateBar m_bar;
    input_methods::InputMethod* m_method = nullptr; // of the layout, or null
    input_methods::Field m_field = input_methods::Field::Text;
    std::string m_layout;
    input_methods::Answer m_shown;
    int m_focus = CandidateBar::kNoFocus;
};

// A host's settings for input methods: nothing is learned unless the environment variable
// VKB_LEARNING_FOLDER names a folder; lines go to standard error behind the program's name.
input_methods::Settings inputSettings(const std::string& program);

} // namespace host

#endif
