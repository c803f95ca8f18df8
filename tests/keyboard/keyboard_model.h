#ifndef TESTS_KEYBOARD_KEYBOARD_MODEL_H
#define TESTS_KEYBOARD_KEYBOARD_MODEL_H

#include <cstddef>
#include <string>
#include <vector>

#include "keyboard_types.h"
#include "layout_folder.h"

// A layout's key sets as its file gives them; a shifted key is made from the same Key.
struct LayoutKeys {
    std::vector<test_support::Key> defaults;
    std::vector<test_support::Key> symbols;
};

// What a keyboard is to do, written from its state tables and sharing no code with it: which
// state each remote key and host call leads to. It draws nothing and knows no DirectFB.
class KeyboardModel
{
public:
    using Key = velmora::browser::vkb::Button_t;
    using Result = velmora::browser::vkb::OsButton_t;

    // The layouts of the second sample's catalogue.
    explicit KeyboardModel(const std::vector<LayoutKeys>& layouts) : m_layouts(&layouts) {}

    void start();
    void cancel();
    void show();
    void hide();
    void nextLayout();
    void reload();
    void replaceLastLock();
    int key(int code);

    bool started() const { return m_started; }
    bool shown() const { return m_shown; }
    bool hasRenderer() const { return m_has_renderer; }
    bool everStarted() const { return m_ever_started; }
    const Result& result() const { return m_result; }
    const Key& focus() const { return m_focus; }
    const std::vector<Key>& keys() const { return m_keys; }
    const std::vector<Key>& locks() const { return m_locks; }

private:
    enum class Shift { Off, Once, Locked };

    void loadKeys();
    void moveFocusTo(int position);
    void unlock(const char* text);
    void takeResult();
    int press();
    int pressSpecial();

    const std::vector<LayoutKeys>* m_layouts; // lent
    bool m_started = false;
    bool m_shown = false;
    bool m_has_renderer = false;
    bool m_ever_started = false;
    size_t m_next_layout = 0;
    size_t m_layout = 0;
    Shift m_shift = Shift::Off;
    bool m_alt = false;
    Key m_focus = {};
    std::vector<Key> m_keys;
    std::vector<Key> m_locks;
    Result m_result = {};
};

#endif
