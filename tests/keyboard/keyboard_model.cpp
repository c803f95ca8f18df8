#include "keyboard_model.h"

#include <algorithm>
#include <map>

#include "layout_sample.h"

void KeyboardModel::start()
{
    if (m_started) {
        show();
        return;
    }
    m_has_renderer = true;
    m_ever_started = true;
    nextLayout();
    loadKeys();
    moveFocusTo(0);
    m_started = true;
    m_shown = true;
}

// Modes, focus, locks and what is shown stay as they are.
void KeyboardModel::cancel()
{
    m_has_renderer = false;
    m_started = false;
    m_next_layout = 0;
}

void KeyboardModel::show()
{
    if (!m_has_renderer)
        return;
    moveFocusTo(m_focus.id);
    m_shown = true;
}

void KeyboardModel::hide()
{
    if (m_has_renderer)
        m_shown = false;
}

void KeyboardModel::replaceLastLock()
{
    if (!m_locks.empty())
        m_locks.pop_back();
    m_locks.push_back(m_focus);
}

int KeyboardModel::key(int code)
{
    if (!m_started || !m_shown)
        return 2;
    if (code == 13)
        return press();
    const std::map<int, int> neighbours = {{37, m_focus.left_button},
                                           {38, m_focus.up_button},
                                           {39, m_focus.right_button},
                                           {40, m_focus.down_button}};
    if (neighbours.count(code) == 0)
        return 2;
    moveFocusTo(neighbours.at(code));
    return 0;
}

void KeyboardModel::nextLayout()
{
    const size_t layout = m_next_layout % m_layouts->size();
    m_next_layout = layout + 1;
    if (!m_has_renderer)
        return; // no parser either: the name alone has changed, and the next start changes it again
    m_layout = layout;
    m_shift = Shift::Off;
    m_alt = false;
    m_locks.clear();
}

void KeyboardModel::loadKeys()
{
    const LayoutKeys& layout = (*m_layouts)[m_layout];
    m_keys = sample::buttons(m_alt ? layout.symbols : layout.defaults, m_shift != Shift::Off);
}

void KeyboardModel::reload()
{
    loadKeys();
    moveFocusTo(m_focus.id);
}

void KeyboardModel::moveFocusTo(int position)
{
    if (position >= 0 && position < static_cast<int>(m_keys.size()))
        m_focus = m_keys[static_cast<size_t>(position)];
}

void KeyboardModel::unlock(const char* text)
{
    m_locks.erase(std::remove_if(m_locks.begin(), m_locks.end(),
                                 [=](const Key& lock) { return lock.text == text; }),
                  m_locks.end());
}

void KeyboardModel::takeResult()
{
    m_result = {m_focus.keyCode, m_shift == Shift::Off ? 0 : 2, m_focus.character, m_focus.text};
}

int KeyboardModel::press()
{
    if (m_focus.isSpecial)
        return pressSpecial();
    if (m_focus.keyCode < 0)
        return 0;
    takeResult();
    if (m_shift == Shift::Once) {
        m_shift = Shift::Off;
        unlock("Shift");
        reload();
    }
    return 1;
}

int KeyboardModel::pressSpecial()
{
    const std::string text = m_focus.text;
    if (text == "shift" || text == "Shift") {
        if (m_shift == Shift::Off) {
            m_shift = Shift::Once;
            m_locks.push_back(m_focus);
        } else if (m_shift == Shift::Once) {
            m_shift = Shift::Locked;
        } else {
            m_shift = Shift::Off;
            unlock("Shift");
        }
        reload();
        return 0;
    }
    if (text == "hide" || text == "Hide") {
        m_shown = false;
        return 0;
    }
    if (text == "alt" || text == "Alt") {
        m_alt = !m_alt;
        if (m_alt)
            m_locks.push_back(m_focus);
        else
            unlock("Alt");
        reload();
        return 0;
    }
    if (text == "clearall" || text == "ClearAll") {
        takeResult();
        return 1;
    }
    if (!m_focus.isLanguage)
        return 2;
    nextLayout();
    reload();
    return 0;
}
