// Operations on a renderer.
#include "renderer_acts.h"

namespace renderer_acts
{

Button_t key(const std::string& text, const velmora::browser::vkb::Rect_t& rect)
{
    Button_t made{};
    made.text = text;
    made.rect = rect;
    return made;
}

Act show()
{
    return [](Painter& on) { on.ui->show(); };
}

Act hide()
{
    return [](Painter& on) { on.ui->hide(); };
}

Act take(const Keys& keys)
{
    return [=](Painter& on) { on.keys = keys; };
}

Act clear(unsigned int argb, bool flip)
{
    return [=](Painter& on) { on.ui->clear(argb, flip); };
}

Act draw(bool flip)
{
    return [=](Painter& on) { on.ui->draw(flip); };
}

Act focus(size_t position)
{
    return [=](Painter& on) { on.ui->setfocus(on.keys[position]); };
}

Act press(const Button_t& key)
{
    return [=](Painter& on) { on.ui->press(key); };
}

Act release(const Button_t& key)
{
    return [=](Painter& on) { on.ui->pressed(key); };
}

// The renderer keeps a copy of its own: the list is gone then.
Act lock(const Keys& keys)
{
    return [=](Painter& on) {
        Keys locked = keys;
        on.ui->setLocked(locked);
        locked.clear();
    };
}

void doAll(const Acts& acts, Painter& on)
{
    for (const Act& act : acts)
        act(on);
}

} // namespace renderer_acts
