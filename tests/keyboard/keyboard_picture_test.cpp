// The whole keyboard on the shipped layouts, as a viewer meets it.

#include <cstdlib>
#include <string>

#include "display.h"
#include "keyboard_core.h"
#include "layout_folder.h"
#include "row.h"

namespace
{

using namespace test_support;

// Remote keys from the start on, and the picture behind them: o is OK, r right, d down, and S the
// host's Show; without a picture the window is transparent.
struct Presses : Row {
    const char* keys;
    const char* picture;
};

const Presses kPresses[] = {
    {"StartsWithTheFocusOnTheFirstKey", "", "english"},
    {"FocusMoves", "rrrrdd", "english-focus"},
    {"ShiftOnce", "dddo", "english-shift"},
    {"ShiftLockedLooksTheSame", "dddoo", "english-shift"},
    {"ALetterWithShiftOnce", "dddorr", "english-shift-locked"},
    {"ALetterWithShiftLocked", "dddoorr", "english-shift-locked"},
    {"ShiftStaysLockedBehindALetter", "dddoorro", "english-shift-locked"},
    {"LetterReleasesShiftOnce", "dddorro", "english-shift-released"},
    {"SymbolSet", "ddo", "english-symbols"},
    {"SymbolSetWithShift", "ddodo", "english-symbols-shift"},
    {"SecondLayout", "ro", "german"},
    {"HiddenIsTransparent", "o", nullptr},
    {"ShowBringsItBack", "oS", "english"},
};

using KeyboardPicture = testing::TestWithParam<Presses>;

TEST_P(KeyboardPicture, Shows)
{
    LayoutFolder folder;
    for (const std::string name : {"Name", "English", "German"}) {
        const std::string file = "Language_" + name + ".json";
        folder.linkFile("/usr/local/opt/nerovista/resources/oskeyboard_config/" + file,
                        VKB_TEST_LAYOUTS "/" + file);
    }
    setenv("VIRTUAL_KEYBOARD_FONT_PATH", VKB_TEST_FONT, 1);
    Display display;
    velmora::browser::vkb::KeyBoardCore core;
    core.OnIMEStart(display.dfb(), nullptr);
    IDirectFBSurface* window = display.newestWindow();
    for (const char key : std::string(GetParam().keys)) {
        if (key == 'S')
            core.Show();
        else
            core.onKeyEvent(key == 'o' ? 13 : key == 'r' ? 39 : 40);
    }
    expectShown(GetParam().picture, window);
}

INSTANTIATE_TEST_SUITE_P(Keys, KeyboardPicture, testing::ValuesIn(kPresses), RowName());

} // namespace
