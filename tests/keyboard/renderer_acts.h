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
Button_t key(const std::string& text, const velmora::browser::vkb::Rect_t& rect);

Act show();
Act hide();
Act take(const Keys& keys); // other keys in the list
Act clear(unsigned int argb, bool flip);
Act draw(bool flip);
Act focus(size_t position); // the key at this position
Act press(const Button_t& key);
Act release(const Button_t& key);
Act lock(const Keys& keys);

void doAll(const Acts& acts, Painter& on);

} // namespace renderer_acts

#endif
