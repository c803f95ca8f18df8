// Memory runs out while a layout loads, at every allocation in turn.
#include <cstdlib>
#include <functional>
#include <new>

#include <gmock/gmock.h>

#include "Language_Parser.h"
#include "failing_new.h"
#include "keyboard_core.h"
#include "layout_sample.h"
#include "recording_display.h"
#include "trace.h"

namespace
{

using velmora::browser::vkb::Button_t;
using velmora::browser::vkb::KeyBoardCore;
using velmora::browser::vkb::LanguageParser;

class Allocation : public testing::Test
{
protected:
    Allocation()
    {
        setenv("VIRTUAL_KEYBOARD_FONT_PATH", VKB_TEST_FONT, 1);
        setenv("CSP_DEBUG_LEVEL", "0", 1);
        sample::writeLayouts(m_folder);
    }

    // Does it with the first, the second ... allocation failing, until all go well; what is left
    // behind is looked at each time.
    static void failEach(const std::function<void()>& load, const std::function<void()>& look)
    {
        size_t escaped = 0;
        for (size_t count = 1;; ++count) {
            SCOPED_TRACE("allocation " + std::to_string(count));
            bool reached = false;
            try {
                const FailingNew failing(count);
                load();
                reached = FailingNew::failed();
            } catch (const std::bad_alloc&) {
                reached = true;
                ++escaped;
            }
            look();
            ASSERT_FALSE(HasFailure());
            if (!reached)
                break;
        }
        EXPECT_GT(escaped, 100u);
    }

    test_support::LayoutFolder m_folder;
};

TEST_F(Allocation, FailingInTheParserEscapesAndLeavesWholeKeys)
{
    std::string english = "English", german = "German";
    LanguageParser parser;
    parser.onLayoutchanged(english);
    const auto load = [&] { parser.onLayoutchanged(german); };
    failEach(load, [&] {
        // What a set holds is the beginning of what it is to hold.
        for (const bool alt : {false, true}) {
            for (const bool shift : {false, true}) {
                const std::vector<Button_t> whole =
                    sample::buttons(sample::keySet(german, alt), shift);
                const std::vector<Button_t>& found = parser.getKeyMap(german, shift, alt);
                ASSERT_LE(found.size(), whole.size());
                for (size_t i = 0; i < found.size(); ++i)
                    ASSERT_EQ(found[i], whole[i]);
            }
        }
        load();
        for (const bool alt : {false, true})
            for (const bool shift : {false, true})
                ASSERT_EQ(parser.getKeyMap(german, shift, alt).size(), size_t(sample::kKeys));
        parser.onLayoutchanged(english);
    });
}

TEST_F(Allocation, FailingInALayoutChangeLeavesAKeyboardThatGoesOn)
{
    test_support::RecordingDisplay display;
    KeyBoardCore core;
    core.OnIMEStart(display.dfb(), nullptr);
    failEach([&] { core.onLayoutChanged(); },
             [&] {
                 ASSERT_TRUE(core.isShow());
                 ASSERT_EQ(core.onKeyEvent(39), 0);
                 ASSERT_EQ(core.onKeyEvent(37), 0);
                 core.onLayoutChanged();
                 ASSERT_EQ(core.updateKeyBoardUI(), 1);
                 ASSERT_EQ(core.getTargetButtonByButtonId(-1).text, "a");
                 test_support::takeTrace();
             });
}

} // namespace
