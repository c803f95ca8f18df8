#ifndef TESTS_KEYBOARD_RENDERER_ACTS_H
#define TESTS_KEYBOARD_RENDERER_ACTS_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "keyboard_ui.h"

// Operations on a renderer, as the rows of a table name them.
namespace renderer_acts
{

using velmora::browser::vkb::Button_t;
using Keys = std::vector<Button_t>;

// A renderer, what it paints on and what it is to paint; all but itself and the list is lent.
struct Painter {
    IDirectFB* dfb;
    IDirectFBSurface* surface;
    const char* font;
    Keys keys;
    std::unique_ptr<velmora::browser::vkb::KeyBoardUI> ui = nullptr;

    void create() { ui.reset(new velmora::browser::vkb::KeyBoardUI(dfb, surface)); }
    bool load(int size = 30) { return ui->setLayoutData(&keys, size, font); }
};

using Act = std::function<void(Painter& on)>;
using Acts = std::vector<Act>;

// A key that can be painted; all else is zero.
inline Button_t key(const std::string& text, const velmora::browser::vkb::Rect_t& rect)
{
    Button_t made{};
    made.text = text;
    made.rect = rect;
    return made;
}

inline Act show()
{
    return [](Painter& on) { on.ui->show(); };
}

inline Act hide()
{
    return [](Painter& on) { on.ui->hide(); };
}

// Other keys in the list.
inline Act take(const Keys& keys)
{
    return [=](Painter& on) { on.keys = keys; };
}

inline Act clear(unsigned int argb, bool flip)
{
    return [=](Painter& on) { on.ui->clear(argb, flip); };
}

inline Act draw(bool flip)
{
    return [=](Painter& on) { on.ui->draw(flip); };
}

// The key at this position.
inline Act focus(size_t position)
{
    return [=](Painter& on) { on.ui->setfocus(on.keys[position]); };
}

inline Act press(const Button_t& key)
{
    return [=](Painter& on) { on.ui->press(key); };
}

inline Act release(const Button_t& key)
{
    return [=](Painter& on) { on.ui->pressed(key); };
}

// The renderer keeps a copy of its own: the list is gone then.
inline Act lock(const Keys& keys)
{
    return [=](Painter& on) {
        Keys locked = keys;
        on.ui->setLocked(locked);
    };
}

inline void doAll(const Acts& acts, Painter& on)
{
    for (const Act& act : acts)
        act(on);
}

} // namespace renderer_acts

#endif
