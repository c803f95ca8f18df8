// Layout files that break while the keyboard is in use.
#include <cstdlib>
#include <random>
#include <string>

#include <gmock/gmock.h>
#include <json/json.h>

#include "drawn_keyboard.h"
#include "keyboard_core.h"
#include "layout_sample.h"
#include "recording_display.h"
#include "trace.h"

namespace
{

using namespace test_support;
using sample::Language;
using testing::AnyOf;
using testing::IsEmpty;
using velmora::browser::vkb::Button_t;
using velmora::browser::vkb::KeyBoardCore;

const int kOk = 13;
const int kLeft = 37;
const int kRight = 39;

// No prefix of it is JSON.
std::string withoutLineEnd(std::string text)
{
    text.erase(text.find_last_not_of('\n') + 1);
    return text;
}

// The sample's first keys, or one of them again behind them.
std::string keyMapText(const std::string& layout, size_t count = sample::kKeys)
{
    std::vector<Key> keys = sample::keySet(layout);
    keys.resize(count, keys[0]);
    return withoutLineEnd(asJson(keys, keys));
}

std::string catalogueText()
{
    Catalogue catalogue = sample::catalogue();
    catalogue.names = {"English", "German"};
    return withoutLineEnd(asJson(catalogue));
}

std::string withAWordForANumber(std::string keyMap)
{
    const size_t at = keyMap.rfind("\"keyCode\" : ") + 12;
    return keyMap.replace(at, keyMap.find(',', at) - at, "\"x\"");
}

// Two layouts, the first of them shown with the focus on the language key.
class LayoutFaults : public testing::Test
{
protected:
    // Before the core is made, which reads the font's path, and before the first line is logged.
    static void SetUpTestSuite()
    {
        setenv("VIRTUAL_KEYBOARD_FONT_PATH", VKB_TEST_FONT, 1);
        setenv("CSP_DEBUG_LEVEL", "0", 1);
    }

    void SetUp() override { repairAndStart(); }

    void repairAndStart()
    {
        m_core.OnIMECancelled();
        m_folder.writeCatalogue(catalogueText());
        for (const std::string layout : {"English", "German"})
            m_folder.writeKeyMap(layout, keyMapText(layout));
        m_core.OnIMEStart(m_display.dfb(), nullptr);
        ASSERT_TRUE(m_core.isShow());
        m_core.FocusButtonChangedTo(Language);
    }

    Button_t focus() { return m_core.getTargetButtonByButtonId(-1); }

    // The keys that are drawn then.
    Lines press(int key, int result = 0)
    {
        takeTrace();
        EXPECT_EQ(m_core.onKeyEvent(key), result);
        return drawnKeyboard(takeTrace()).keys;
    }

    static Lines keysOf(const std::string& layout)
    {
        return {"a", "Shift", "Alt", layout, "ClearAll", "Hide", "Fn", "mute"};
    }

    // One layout after the other by the language key, which has the focus; all keys are there.
    void expectBothLayoutsWork()
    {
        EXPECT_EQ(press(kOk), keysOf("German"));
        EXPECT_EQ(press(kOk), keysOf("English"));
    }

    // The focus stays on the key that was copied, and arrows do nothing.
    void expectNoKeysInTheSecondLayout()
    {
        ASSERT_THAT(press(kOk), IsEmpty());
        ASSERT_THAT(press(kRight), IsEmpty());
        ASSERT_THAT(press(kLeft), IsEmpty());
        ASSERT_EQ(focus().text, "English");
        ASSERT_EQ(press(kOk), keysOf("English"));
    }

    LayoutFolder m_folder;
    RecordingDisplay m_display;
    KeyBoardCore m_core;
};

TEST_F(LayoutFaults, AKeyMapThatCannotBeOpenedLeavesNoKeysUntilItIsRepaired)
{
    const std::string file = LayoutFolder::keyMapPath("German");
    const std::string missing = "/no/such/file", folder = "/", itself = m_folder.root() + file;
    for (const std::string& target : {missing, folder, itself}) {
        SCOPED_TRACE("a link to " + target);
        m_folder.linkFile(file, target);
        expectNoKeysInTheSecondLayout();
        m_folder.writeKeyMap("German", keyMapText("German"));
        expectBothLayoutsWork();
    }
}

TEST_F(LayoutFaults, AKeyMapCutOffAtAnyByteLeavesNoKeysUntilItIsWhole)
{
    const std::string whole = keyMapText("German", 5);
    for (size_t bytes = 0; bytes < whole.size(); ++bytes) {
        SCOPED_TRACE("cut off after " + std::to_string(bytes) + " bytes");
        m_folder.writeKeyMap("German", whole.substr(0, bytes));
        ASSERT_NO_FATAL_FAILURE(expectNoKeysInTheSecondLayout());
    }
    m_folder.writeKeyMap("German", keyMapText("German"));
    expectBothLayoutsWork();
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
        ASSERT_NO_FATAL_FAILURE(repairAndStart());
        expectBothLayoutsWork();
    }
    m_core.OnIMECancelled();
    m_folder.linkFile(LayoutFolder::cataloguePath(), "/"); // a folder
    m_core.OnIMEStart(m_display.dfb(), nullptr);
    EXPECT_FALSE(m_core.isKeyBoardEnable());
}

TEST_F(LayoutFaults, ACatalogueThatBreaksLaterIsNotMissed)
{
    m_folder.removeCatalogue();
    expectBothLayoutsWork();
    m_folder.writeCatalogue("{");
    expectBothLayoutsWork();
}

TEST_F(LayoutFaults, AnEmptyKeySetIsReadAgainAsSoonAsItIsAskedFor)
{
    m_folder.removeKeyMap("German");
    EXPECT_THAT(press(kOk), IsEmpty());
    m_folder.writeKeyMap("German", keyMapText("German"));
    m_core.updateKeyBoardUI();
    EXPECT_EQ(press(kRight), keysOf("German"));
    EXPECT_EQ(focus().text, "ClearAll");
}

TEST_F(LayoutFaults, AShorterKeyMapKeepsTheFocusedKeyUntilAMove)
{
    m_core.FocusButtonChangedTo(sample::ClearAll);
    m_folder.writeKeyMap("German", keyMapText("German", 2));
    m_core.onLayoutChanged();
    m_core.updateKeyBoardUI();
    // The key of the layout before, and its neighbours: the left one is not there, the upper is.
    EXPECT_EQ(focus().text, "ClearAll");
    EXPECT_THAT(press(kOk, 1), IsEmpty());
    EXPECT_EQ(m_core.getKeyBoardButton(), 46);
    press(kLeft);
    EXPECT_EQ(focus().text, "ClearAll");
    press(38);
    EXPECT_EQ(focus().text, "a");
}

TEST_F(LayoutFaults, AKeyThatCannotBeConvertedThrowsAndTheKeyboardGoesOn)
{
    m_folder.writeKeyMap("German", withAWordForANumber(keyMapText("German")));
    EXPECT_THROW(m_core.onKeyEvent(kOk), Json::Exception);
    // The keys shown are still those of before.
    EXPECT_EQ(press(kRight), keysOf("English"));
    EXPECT_EQ(press(kLeft), keysOf("English"));
    EXPECT_EQ(press(kOk), keysOf("English"));
    m_folder.writeKeyMap("German", keyMapText("German"));
    expectBothLayoutsWork();
}

// Each press of a key meets another state of the files.
TEST_F(LayoutFaults, FilesThatChangeAtRandomNeverEndTheKeyboard)
{
    std::mt19937 random(20240229);
    int thrown = 0;
    for (int step = 0; step < 3000; ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        const std::string layout = random() % 2 == 0 ? "English" : "German";
        const std::string whole = keyMapText(layout);
        std::string changed = whole;
        changed[random() % changed.size()] = static_cast<char>(random() % 256);
        const std::string texts[] = {whole.substr(0, random() % whole.size()),
                                     keyMapText(layout, 1 + random() % 4),
                                     keyMapText(layout, sample::kKeys + 3), // beyond the positions
                                     changed, withAWordForANumber(whole)};
        const size_t choice = random() % 9;
        if (choice == 0)
            m_folder.removeKeyMap(layout);
        else if (choice == 1)
            m_folder.makeUnreadable(LayoutFolder::keyMapPath(layout));
        else
            m_folder.writeKeyMap(layout, choice < 7 ? texts[choice - 2] : whole);

        m_core.Show(); // a hide key may have been pressed
        for (int i = 0; i < 4; ++i) {
            const int keys[] = {kOk, kOk, kLeft, 38, kRight, 40};
            try {
                ASSERT_THAT(m_core.onKeyEvent(keys[random() % 6]), AnyOf(0, 1, 2));
            } catch (const Json::Exception&) {
                ++thrown;
            }
        }
        ASSERT_TRUE(m_core.isKeyBoardEnable());
        takeTrace();
    }
    EXPECT_GT(thrown, 0) << "no value was met that the library cannot convert";
    ASSERT_NO_FATAL_FAILURE(repairAndStart());
    expectBothLayoutsWork();
}

} // namespace
