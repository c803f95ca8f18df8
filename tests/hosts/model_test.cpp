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
using velmora::browser::vkb::OsButton_t;

TEST(KeyboardModel, ForetellsWhatTheKeyboardDoes)
{
    ASSERT_NE(host::chooseFont(), "");
    const KeyboardModel model(host::installedLayouts());
    ASSERT_GE(model.layouts().size(), 2U);
    KeyboardHost keyboard;
    ASSERT_TRUE(keyboard.start());

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
        OsButton_t result = {};
        const bool ready = keyboard.press(press, result);
        ASSERT_EQ(ready, step.result != nullptr) << "press " << i;
        ASSERT_EQ(keyboard.isShown(), !step.hides) << "press " << i;
        if (ready) {
            ++results;
            ASSERT_EQ(result.text, step.result->text) << "press " << i;
            ASSERT_EQ(result.keyCode, step.result->keyCode) << "press " << i;
            ASSERT_EQ(result.character, step.result->character) << "press " << i;
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
