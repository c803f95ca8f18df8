// Layout files that break while the keyboard is in use.
#include <cstdlib>
#include <random>

#include <gmock/gmock.h>
#include <json/json.h>

#include "drawn_keyboard.h"
#include "fault_layouts.h"
#include "keyboard_core.h"
#include "recording_display.h"
#include "trace.h"

using test_support::drawnKeyboard;
using test_support::LayoutFolder;
using test_support::RecordingDisplay;
using testing::AnyOf;
using velmora::browser::vkb::Button_t;
using velmora::browser::vkb::KeyBoardCore;

namespace
{

const int kOk = 13;
const int kLeft = 37;
const int kRight = 39;

// In the last key's code, which has three digits.
std::string withAWordForANumber(std::string keyMap)
{
    const size_t at = keyMap.rfind("\"keyCode\"");
    return keyMap.replace(keyMap.find_first_of("0123456789", at), 3, "\"x\"");
}

// The core reads the font's path when it is made, and the log its level at the first line.
struct Environment {
    Environment()
    {
        setenv("VIRTUAL_KEYBOARD_FONT_PATH", VKB_TEST_FONT, 1);
        setenv("CSP_DEBUG_LEVEL", "0", 1);
    }
};

class LayoutFaults : public testing::Test
{
protected:
    void SetUp() override
    {
        writeGoodFiles(m_folder);
        m_core.OnIMEStart(m_display.dfb(), nullptr);
        ASSERT_TRUE(m_core.isShow());
    }

    void TearDown() override { unsetenv("VKB_TEST_FAIL_OPEN"); }

    Button_t focus() { return m_core.getTargetButtonByButtonId(-1); }

    std::vector<std::string> press(int key, int result)
    {
        test_support::takeTrace();
        EXPECT_EQ(m_core.onKeyEvent(key), result);
        return drawnKeyboard(test_support::takeTrace()).keys;
    }

    // One layout after the other by the language key, which has the focus; all keys are there.
    void expectBothLayoutsWork(const std::string& first, const std::string& second)
    {
        EXPECT_EQ(press(kOk, 0), labels(first));
        EXPECT_EQ(press(kOk, 0), labels(second));
    }

    static std::vector<std::string> labels(const std::string& mark)
    {
        return {"Next", "a" + mark, "Shift", "Alt", "a" + mark};
    }

    Environment m_environment; // before the core
    LayoutFolder m_folder;
    RecordingDisplay m_display;
    KeyBoardCore m_core;
};

} // namespace

TEST_F(LayoutFaults, AKeyMapCutOffAtAnyByteLeavesNoKeysUntilItIsWhole)
{
    const std::string whole = keyMapText("2");
    const std::vector<std::string> none;
    for (size_t bytes = 0; bytes < whole.size(); ++bytes) {
        SCOPED_TRACE("cut off after " + std::to_string(bytes) + " bytes");
        m_folder.writeKeyMap("Two", whole.substr(0, bytes));
        ASSERT_EQ(press(kOk, 0), none);
        // The focus stays on the key that was copied, and arrows do nothing.
        ASSERT_EQ(press(kRight, 0), none);
        ASSERT_EQ(press(kLeft, 0), none);
        ASSERT_EQ(focus().text, "Next");
        ASSERT_EQ(press(kOk, 0), labels("1"));
    }
    m_folder.writeKeyMap("Two", whole);
    expectBothLayoutsWork("2", "1");
}

TEST_F(LayoutFaults, ACatalogueCutOffAtAnyByteStartsNothingUntilItIsWhole)
{
    const std::string whole = catalogueText();
    for (size_t bytes = 0; bytes < whole.size(); ++bytes) {
        SCOPED_TRACE("cut off after " + std::to_string(bytes) + " bytes");
        m_core.OnIMECancelled();
        m_folder.writeCatalogue(whole.substr(0, bytes));
        m_core.OnIMEStart(m_display.dfb(), nullptr);
        ASSERT_FALSE(m_core.isKeyBoardEnable());
        ASSERT_EQ(m_core.onKeyEvent(kRight), 2);
        m_core.OnIMECancelled();
        m_folder.writeCatalogue(whole);
        m_core.OnIMEStart(m_display.dfb(), nullptr);
        ASSERT_TRUE(m_core.isKeyBoardEnable());
        expectBothLayoutsWork("2", "1");
    }
}

TEST_F(LayoutFaults, ACatalogueThatBreaksLaterIsNotMissed)
{
    m_folder.removeCatalogue();
    expectBothLayoutsWork("2", "1");
    m_folder.writeCatalogue("{");
    expectBothLayoutsWork("2", "1");
}

TEST_F(LayoutFaults, AKeyMapThatVanishesComesBack)
{
    m_folder.removeKeyMap("Two");
    EXPECT_TRUE(press(kOk, 0).empty());
    m_folder.writeKeyMap("Two", keyMapText("2"));
    // The empty set is read again as soon as it is asked for.
    m_core.updateKeyBoardUI();
    EXPECT_EQ(press(kRight, 0), labels("2"));
    EXPECT_EQ(focus().text, "a2");
}

TEST_F(LayoutFaults, AnUnreadableKeyMapIsReadOnceItCanBe)
{
    setenv("VKB_TEST_FAIL_OPEN", LayoutFolder::keyMapPath("Two").c_str(), 1);
    EXPECT_TRUE(press(kOk, 0).empty());
    unsetenv("VKB_TEST_FAIL_OPEN");
    EXPECT_EQ(press(kOk, 0), labels("1"));
    expectBothLayoutsWork("2", "1");
}

TEST_F(LayoutFaults, AFolderInPlaceOfAFileIsAsGoodAsNone)
{
    m_folder.removeKeyMap("Two");
    m_folder.linkFile(LayoutFolder::keyMapPath("Two"), "/");
    ASSERT_EQ(press(kOk, 0), std::vector<std::string>());
    ASSERT_EQ(press(kOk, 0), labels("1"));
    m_folder.removeKeyMap("Two");
    m_folder.writeKeyMap("Two", keyMapText("2"));
    expectBothLayoutsWork("2", "1");

    m_core.OnIMECancelled();
    m_folder.removeCatalogue();
    m_folder.linkFile(LayoutFolder::cataloguePath(), "/");
    m_core.OnIMEStart(m_display.dfb(), nullptr);
    EXPECT_FALSE(m_core.isKeyBoardEnable());
}

TEST_F(LayoutFaults, AShorterKeyMapKeepsTheFocusedKeyUntilAMove)
{
    m_core.FocusButtonChangedTo(4);
    m_folder.writeKeyMap("Two", keyMapText("2", 2));
    m_core.onLayoutChanged();
    m_core.updateKeyBoardUI();
    EXPECT_EQ(focus().text, "a1"); // the key of the layout before; its position is not there now
    EXPECT_EQ(press(kOk, 1), (std::vector<std::string>{}));
    EXPECT_EQ(m_core.getKeyBoardButton(), 104);
    // Its neighbours are positions of the layout before: the left one, 3, is not there; the right
    // one is key 0.
    press(kLeft, 0);
    EXPECT_EQ(focus().text, "a1");
    press(kRight, 0);
    EXPECT_EQ(focus().text, "Next");
}

TEST_F(LayoutFaults, AKeyThatCannotBeConvertedThrowsAndTheKeyboardGoesOn)
{
    m_folder.writeKeyMap("Two", withAWordForANumber(keyMapText("2")));
    EXPECT_THROW(m_core.onKeyEvent(kOk), Json::Exception);
    // The keys shown are still those of before.
    EXPECT_EQ(press(kRight, 0), labels("1"));
    EXPECT_EQ(press(kLeft, 0), labels("1"));
    EXPECT_EQ(press(kOk, 0), labels("1"));
    m_folder.writeKeyMap("Two", keyMapText("2"));
    expectBothLayoutsWork("2", "1");
}

// Each press of a key meets another state of the files.
TEST_F(LayoutFaults, FilesThatChangeAtRandomNeverEndTheKeyboard)
{
    std::mt19937 random(20240229);
    const int keys[] = {kOk, kOk, kLeft, 38, kRight, 40};
    int thrown = 0;
    for (int step = 0; step < 3000; ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        const std::string layout = kLayouts[random() % 2];
        const std::string whole = keyMapText(layout == "One" ? "1" : "2", kKeys);
        unsetenv("VKB_TEST_FAIL_OPEN");
        switch (random() % 9) {
        case 0:
            m_folder.removeKeyMap(layout);
            break;
        case 1:
            m_folder.writeKeyMap(layout, whole.substr(0, random() % whole.size()));
            break;
        case 2:
            setenv("VKB_TEST_FAIL_OPEN", LayoutFolder::keyMapPath(layout).c_str(), 1);
            break;
        case 3:
            m_folder.writeKeyMap(layout, keyMapText("short", 1 + static_cast<int>(random() % 4)));
            break;
        case 4: // more keys than the catalogue has positions
            m_folder.writeKeyMap(layout, keyMapText("long", kKeys + 3));
            break;
        case 5: { // one byte is another
            std::string changed = whole;
            changed[random() % changed.size()] = static_cast<char>(random() % 256);
            m_folder.writeKeyMap(layout, changed);
            break;
        }
        case 6:
            m_folder.writeKeyMap(layout, withAWordForANumber(whole));
            break;
        default:
            m_folder.writeKeyMap(layout, whole);
        }
        for (int i = 0; i < 4; ++i) {
            try {
                ASSERT_THAT(m_core.onKeyEvent(keys[random() % 6]), AnyOf(0, 1, 2));
            } catch (const Json::Exception&) {
                ++thrown;
            }
            ASSERT_TRUE(m_core.isShow());
        }
        test_support::takeTrace();
    }
    EXPECT_GT(thrown, 0) << "no value was met that the library cannot convert";

    unsetenv("VKB_TEST_FAIL_OPEN");
    writeGoodFiles(m_folder);
    m_core.OnIMECancelled();
    m_core.OnIMEStart(m_display.dfb(), nullptr);
    expectBothLayoutsWork("2", "1");
}
