// Memory runs out while a layout loads, at every allocation in turn.
#include <cstdlib>
#include <new>

#include <gmock/gmock.h>

#include "Language_Parser.h"
#include "failing_new.h"
#include "fault_layouts.h"
#include "keyboard_core.h"
#include "recording_display.h"
#include "trace.h"

using test_support::Key;
using test_support::LayoutFolder;
using test_support::RecordingDisplay;
using velmora::browser::vkb::Button_t;
using velmora::browser::vkb::KeyBoardCore;
using velmora::browser::vkb::LanguageParser;

namespace
{

const size_t kEnough = 100000; // allocations, far more than a load makes

// What a set holds is the beginning of what it is to hold.
void expectBeginning(const std::vector<Button_t>& keys, const std::vector<Key>& whole, bool shift)
{
    ASSERT_LE(keys.size(), whole.size());
    for (size_t i = 0; i < keys.size(); ++i) {
        EXPECT_EQ(keys[i].text, shift ? whole[i].shiftText : whole[i].text);
        EXPECT_EQ(keys[i].id, whole[i].id);
        EXPECT_EQ(keys[i].character, shift ? whole[i].shiftCharacter : whole[i].character);
        EXPECT_EQ(keys[i].down_button, whole[i].down);
    }
}

void expectAllSets(LanguageParser& parser, std::string& name, size_t count)
{
    for (bool shift : {false, true})
        for (bool alt : {false, true})
            EXPECT_EQ(parser.getKeyMap(name, shift, alt).size(), count);
}

class Allocation : public testing::Test
{
protected:
    void SetUp() override
    {
        setenv("VIRTUAL_KEYBOARD_FONT_PATH", VKB_TEST_FONT, 1);
        setenv("CSP_DEBUG_LEVEL", "0", 1);
        writeGoodFiles(m_folder);
    }

    LayoutFolder m_folder;
};

} // namespace

TEST_F(Allocation, FailingInTheParserEscapesAndLeavesWholeKeys)
{
    std::string one = "One", two = "Two";
    const std::vector<Key> plain = keysMarked("2"), symbols = keysMarked("2+");
    size_t escaped = 0;
    for (size_t count = 1; count < kEnough; ++count) {
        SCOPED_TRACE("allocation " + std::to_string(count));
        LanguageParser parser;
        parser.onLayoutchanged(one);
        bool reached = false;
        try {
            FailingNew failing(count);
            parser.onLayoutchanged(two);
            reached = failing.failed();
        } catch (const std::bad_alloc&) {
            reached = true;
            ++escaped;
        }
        if (!reached) {
            expectAllSets(parser, two, plain.size());
            EXPECT_GT(escaped, 100u);
            return;
        }
        // getKeyMap reads again when a set is empty, so each is looked at where it holds keys.
        expectBeginning(parser.getKeyMap(two, false, false), plain, false);
        expectBeginning(parser.getKeyMap(two, true, false), plain, true);
        expectBeginning(parser.getKeyMap(two, false, true), symbols, false);
        expectBeginning(parser.getKeyMap(two, true, true), symbols, true);
        parser.onLayoutchanged(two);
        expectAllSets(parser, two, plain.size());
        ASSERT_FALSE(HasFailure());
    }
    FAIL() << "a load never came to its end";
}

TEST_F(Allocation, FailingInALayoutChangeLeavesAKeyboardThatGoesOn)
{
    RecordingDisplay display;
    KeyBoardCore core;
    core.OnIMEStart(display.dfb(), nullptr);
    size_t escaped = 0;
    for (size_t count = 1; count < kEnough; ++count) {
        SCOPED_TRACE("allocation " + std::to_string(count));
        bool reached = false;
        try {
            FailingNew failing(count);
            core.onLayoutChanged();
            reached = failing.failed();
        } catch (const std::bad_alloc&) {
            reached = true;
            ++escaped;
        }
        ASSERT_TRUE(core.isShow());
        ASSERT_EQ(core.onKeyEvent(39), 0);
        ASSERT_EQ(core.onKeyEvent(37), 0);
        core.onLayoutChanged();
        ASSERT_EQ(core.updateKeyBoardUI(), 1);
        ASSERT_EQ(core.getTargetButtonByButtonId(-1).text, "Next");
        test_support::takeTrace();
        if (!reached) {
            EXPECT_GT(escaped, 100u);
            return;
        }
    }
    FAIL() << "a load never came to its end";
}
