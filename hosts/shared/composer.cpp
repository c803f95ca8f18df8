// Leads key results to the layout's input method, and shows what there is to choose.
#include "composer.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "keyboard_constants.h"

namespace host
{

using namespace velmora::browser::vkb;
using input_methods::Answer;

namespace
{

const int kKeyboardWidth = 1302; // pixels, of the shipped catalogue

} // namespace

Composer::Composer(const Screen& screen, const std::string& font, input_methods::Settings settings)
    : m_methods(std::move(settings)), m_bar(screen, font, kKeyboardWidth)
{
}

void Composer::enterField(input_methods::Field field)
{
    if (m_method != nullptr)
        take(m_method->reset());
    m_field = field;
    m_method = m_methods.find(m_layout, m_field);
}

Composed Composer::setLayout(const std::string& layout)
{
    if (layout == m_layout)
        return Composed();
    Composed last = finish();
    m_layout = layout;
    m_method = m_methods.find(m_layout, m_field);
    return last;
}

Composed Composer::feed(const OsButton_t& key)
{
    return m_method == nullptr ? Composed() : take(m_method->feed(key));
}

Composed Composer::finish()
{
    return m_method == nullptr ? Composed() : take(m_method->finish());
}

Composed Composer::choose(int number)
{
    return m_method == nullptr ? Composed() : take(m_method->choose(number));
}

Composed Composer::take(Answer answer)
{
    Composed composed = {answer.used, answer.takeBack, std::move(answer.commit)};
    m_shown = std::move(answer);
    if (!offers()) {
        m_focus = CandidateBar::kNoFocus;
        m_bar.hide();
        return composed;
    }
    if (m_focus >= static_cast<int>(m_shown.candidates.size()))
        m_focus = static_cast<int>(m_shown.candidates.size()) - 1;
    m_bar.show(m_shown, m_focus);
    return composed;
}

void Composer::enterBar()
{
    if (!offers())
        return;
    m_focus = 0;
    m_bar.show(m_shown, m_focus);
}

void Composer::leaveBar()
{
    m_focus = CandidateBar::kNoFocus;
    if (offers())
        m_bar.show(m_shown, m_focus);
}

Composed Composer::pressInBar(int keyCode)
{
    switch (keyCode) {
    case RemoteOk: {
        const int number = m_focus + 1;
        m_focus = 0; // of what there is to choose for the rest of the word
        return choose(number);
    }
    case RemoteLeft:
        moveInBar(-1);
        break;
    case RemoteRight:
        moveInBar(1);
        break;
    case RemoteDown:
        leaveBar();
        break;
    default:
        break;
    }
    return Composed();
}

// Past the last candidate of a page is the first of the next, and the other way round.
void Composer::moveInBar(int step)
{
    const int next = m_focus + step;
    if (next < 0 || next >= static_cast<int>(m_shown.candidates.size()))
        return turnPage(step);
    m_focus = next;
    m_bar.show(m_shown, m_focus);
}

void Composer::turnPage(int step)
{
    if (!(step < 0 ? m_shown.hasPrevious : m_shown.hasNext))
        return;
    m_focus = 0;
    take(m_method->page(step));
    if (step < 0)
        m_focus = static_cast<int>(m_shown.candidates.size()) - 1;
    m_bar.show(m_shown, m_focus);
}

input_methods::Settings inputSettings(const std::string& program)
{
    input_methods::Settings settings;
    const char* folder = std::getenv("VKB_LEARNING_FOLDER");
    settings.learningFolder = folder == nullptr ? "" : folder;
    settings.report = [program](const std::string& line) {
        std::fprintf(stderr, "%s: %s\n", program.c_str(), line.c_str());
    };
    return settings;
}

} // namespace host
