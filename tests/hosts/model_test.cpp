// The model against the keyboard itself, with the shipped layouts.
#include "keyboard_model.h"

#include <random>

#include <gtest/gtest.h>

#include "keyboard_host.h"
#include "planner.h"
#include "screen.h"

namespace
{

using host::KeyboardHost;
using host::KeyboardModel;
using host::KeyboardState;
using host::Press;

TEST(KeyboardModel, ForetellsWhatTheKeyboardDoes)
{
    ASSERT_NE(host::chooseFont(), "");
    const KeyboardModel model(host::installedLayouts());
    ASSERT_GE(model.layouts().size(), 2U);
    const host::Screen::Option options[] = {
        {"system", "dummy"}, {"mode", "1920x1080"}, {"quiet", nullptr}, {nullptr, nullptr}};
    const host::Screen screen(options);
    KeyboardHost keyboard(screen, &model);
    ASSERT_TRUE(keyboard.show());

    const Press presses[] = {Press::Ok,    Press::Ok, Press::Left,
                             Press::Right, Press::Up, Press::Down};
    std::mt19937 random(7);
    std::uniform_int_distribution<size_t> choose(0, 5);
    KeyboardState state;
    int results = 0;
    int hidden = 0;
    for (int i = 0; i < 3000; ++i) {
        const Press press = presses[choose(random)];
        const KeyboardModel::Step step = model.after(state, press);
        const KeyboardHost::Answer answer = keyboard.press(press);
        ASSERT_TRUE(answer.taken) << "press " << i;
        ASSERT_EQ(answer.hasEdit, step.result != nullptr) << "press " << i;
        ASSERT_EQ(keyboard.isShown(), !step.hides) << "press " << i;
        ASSERT_EQ(keyboard.state(), step.state) << "press " << i;
        if (answer.hasEdit) {
            ++results;
            ASSERT_EQ(answer.edit.keyCode, step.result->keyCode) << "press " << i;
            if (answer.edit.action == host::KeyAction::Insert) {
                ASSERT_EQ(answer.edit.text,
                          host::keyText(step.result->character, step.result->text))
                    << "press " << i;
            }
        }
        if (step.hides) {
            ++hidden;
            keyboard.show();
        }
        state = step.state;
    }
    EXPECT_GT(results, 500);
    EXPECT_GT(hidden, 0);
}

} // namespace
