#ifndef TESTS_KEYBOARD_KEYBOARD_MODEL_H
#define TESTS_KEYBOARD_KEYBOARD_MODEL_H

#include <cstddef>
#include <string>
#include <vector>

#include "layout_folder.h"

using test_support::Key;

// A layout's key sets as its file gives them; a shifted face is made from the same Key.
struct LayoutKeys {
    std::vector<Key> defaults;
    std::vector<Key> symbols;
};

// One face of a key as the keyboard shows it.
struct Face {
    std::string text;
    int character;
    Key key;
};

// What a keyboard is to do, written from its state tables and sharing no code with it: which
// state each remote key and host call leads to. It draws nothing and knows no DirectFB.
class KeyboardModel
{
public:
    explicit KeyboardModel(const std::vector<LayoutKeys>& layouts) : m_layouts(&layouts) {}

    struct Result {
        int keyCode = 0;
        int modifier = 0;
        int character = 0;
        std::string text;
    };

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
    const Face& focus() const { return m_focus; }
    const std::vector<Face>& keys() const { return m_keys; }
    const std::vector<Face>& locks() const { return m_locks; }

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
    Face m_focus = {};
    std::vector<Face> m_keys;
    std::vector<Face> m_locks;
    Result m_result;
};

#endif
