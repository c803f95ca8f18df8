// Every script of the kb mode presses the key that it is named for on the shipped layouts, each of
// them put first in the catalogue in turn. A layout that is added gets these tests by itself.

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include <directfb.h>
#include <gmock/gmock.h>
#include <json/json.h>

#include "driver_run.h"
#include "kb_script.h"
#include "keyboard_core.h"

using namespace kb_script;
using namespace transcript;
using test_process::Result;
using testing::Contains;
using velmora::browser::vkb::KeyBoardCore;
using velmora::browser::vkb::OsButton_t;

namespace
{

const int kBackspaceCode = 8;
const int kEnterCode = 13;
const int kSpaceCode = 32;
const int kShiftModifier = 2;

Json::Value keysOf(const std::string& layout, const std::string& set)
{
    std::ifstream stream(shippedFile("Language_" + layout + ".json"));
    Json::Value map;
    Json::CharReaderBuilder reader;
    std::string errors;
    if (!Json::parseFromStream(reader, stream, &map, &errors))
        throw std::runtime_error(layout + ": " + errors);
    return map["Keys"][set];
}

Json::Value walk(const Json::Value& keys, Json::Value key, const char* neighbour, int steps)
{
    for (int i = 0; i < steps; ++i)
        key = keys[key[neighbour].asInt()];
    return key;
}

bool isLetter(const Json::Value& key)
{
    return key["keyCode"].asInt() >= 'A' && key["keyCode"].asInt() <= 'Z' &&
           key["text"] != key["shift_text"] && !key["isSpecial"].asBool();
}

// How far right of the Shift key the first letter stands, and that letter.
struct LetterKey {
    int steps;
    Json::Value key;
};

LetterKey letterRightOfShift(const std::string& layout)
{
    const Json::Value keys = keysOf(layout, "KeyMode_Default");
    Json::Value key = walk(keys, keys[0], "down_button", 3);
    for (int steps = 1; steps < 16; ++steps) {
        key = walk(keys, key, "right_button", 1);
        if (isLetter(key))
            return {steps, key};
    }
    throw std::runtime_error(layout + ": no letter to the right of Shift");
}

} // namespace

class ShippedLayout : public testing::TestWithParam<std::string>
{
protected:
    const std::string& layout() const { return GetParam(); }

    // The transcript of one command on a keyboard that starts with this layout.
    Lines runFresh(const std::string& command, const std::string& parameter = "")
    {
        TestPlace place;
        place.putShippedLayouts(layout());
        place.putFonts();
        const Result result = test_process::run(driverCommand(place, {"kb", command, parameter}));
        EXPECT_EQ(result.exit_status, 0);
        EXPECT_EQ(result.err, "");
        return reduce(result.out);
    }

    // The last probe's result: "result TEXT CODE", or the answer to Enter.
    std::string lastProbe(const Lines& lines)
    {
        for (auto line = lines.rbegin(); line != lines.rend(); ++line)
            if (line->rfind("result ", 0) == 0 || line->find("key result :") != std::string::npos)
                return *line;
        return "no probe";
    }
};

TEST_P(ShippedLayout, StartsWithThisLayout)
{
    EXPECT_THAT(runFresh("getkey"), Contains("layout " + layout()));
}

TEST_P(ShippedLayout, ClearPressesBackspace)
{
    const Lines lines = runFresh("clear");
    EXPECT_THAT(lastProbe(lines), testing::EndsWith(" " + std::to_string(kBackspaceCode)));
    EXPECT_THAT(lines, Contains(kbLine(20, "kb_test_get_key", "curernt key :\b")));
}

TEST_P(ShippedLayout, SubmitPressesEnter)
{
    const Lines lines = runFresh("submit");
    EXPECT_THAT(lastProbe(lines), testing::EndsWith(" " + std::to_string(kEnterCode)));
    EXPECT_THAT(lines, Contains(kbLine(20, "kb_test_get_key", "curernt key :\r")));
}

TEST_P(ShippedLayout, SpacePressesTheSpaceBar)
{
    const Lines lines = runFresh("space");
    EXPECT_EQ(lastProbe(lines), "result   " + std::to_string(kSpaceCode)) << "its text is a blank";
    EXPECT_THAT(lines, Contains(kbLine(20, "kb_test_get_key", "curernt key : ")));
}

TEST_P(ShippedLayout, ClearAllPressesClearAll)
{
    const Lines lines = runFresh("clear-all");
    EXPECT_THAT(lastProbe(lines), testing::StartsWith("result ClearAll "));
}

TEST_P(ShippedLayout, ShowPressesAnOrdinaryKeyBeforeAndAfter)
{
    const Json::Value keys = keysOf(layout(), "KeyMode_Default");
    const Json::Value key = walk(keys, keys[0], "right_button", 3);
    ASSERT_FALSE(key["isSpecial"].asBool());
    const std::string result = "result " + key["text"].asString() + " " + key["keyCode"].asString();
    const Lines lines = runFresh("show");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), result), 2) << text(lines);
}

TEST_P(ShippedLayout, HideHides)
{
    EXPECT_THAT(runFresh("hide"), Contains(kbLine(295, "kb_test_hide", "Hide VKB")));
}

TEST_P(ShippedLayout, ShiftPressesShiftOnceAndLocks)
{
    const Lines lines = runFresh("shift");
    EXPECT_THAT(lines, Contains("mode shiftButtonHandle 0"));
    EXPECT_THAT(lines, Contains("mode shiftButtonHandle 1"));
}

TEST_P(ShippedLayout, ShiftRightPressesAShiftedLetter)
{
    const LetterKey letter = letterRightOfShift(layout());
    EXPECT_EQ(lastProbe(runFresh("shift-right", std::to_string(letter.steps))),
              "result " + letter.key["shift_text"].asString() + " " +
                  letter.key["keyCode"].asString());
}

TEST_P(ShippedLayout, ShiftLockPressesAShiftedLetter)
{
    const LetterKey letter = letterRightOfShift(layout());
    EXPECT_EQ(lastProbe(runFresh("shift-lock", std::to_string(letter.steps))),
              "result " + letter.key["shift_text"].asString() + " " +
                  letter.key["keyCode"].asString());
}

TEST_P(ShippedLayout, AltPressesAltOnAndOff)
{
    const Lines lines = runFresh("alt");
    EXPECT_THAT(lines, Contains("mode altButtonHandle 0"));
    EXPECT_THAT(lines, Contains("mode altButtonHandle 1"));
}

TEST_P(ShippedLayout, AltRightPressesASymbol)
{
    const Json::Value symbols = keysOf(layout(), "KeyMode_Symbol");
    const Json::Value alt = walk(symbols, symbols[0], "down_button", 2);
    ASSERT_EQ(alt["text"], "Alt");
    const Json::Value symbol = walk(symbols, alt, "right_button", 1);
    ASSERT_FALSE(symbol["isSpecial"].asBool());
    ASSERT_NE(symbol["text"], keysOf(layout(), "KeyMode_Default")[symbol["id"].asInt()]["text"]);
    EXPECT_EQ(lastProbe(runFresh("alt-right", "1")),
              "result " + symbol["text"].asString() + " " + symbol["keyCode"].asString());
}

TEST_P(ShippedLayout, AltShiftPressesAltThenShift)
{
    const Lines lines = runFresh("alt-shift");
    const auto alt = std::find(lines.begin(), lines.end(), "mode altButtonHandle 0");
    ASSERT_NE(alt, lines.end());
    EXPECT_NE(std::find(alt, lines.end(), "mode shiftButtonHandle 0"), lines.end());
}

TEST_P(ShippedLayout, LanguageStepsThroughAllLayoutsAndBack)
{
    const std::vector<std::string> shipped = shippedLayoutNames();
    Lines expected;
    auto next = std::find(shipped.begin(), shipped.end(), layout());
    for (size_t i = 0; i <= shipped.size(); ++i) {
        expected.push_back("layout " + *next);
        if (++next == shipped.end())
            next = shipped.begin();
    }

    Lines layouts;
    for (const std::string& line : runFresh("language", std::to_string(shipped.size())))
        if (line.rfind("layout ", 0) == 0)
            layouts.push_back(line);
    EXPECT_EQ(layouts, expected);
}

TEST_P(ShippedLayout, MovesComeBackToWhereTheyStarted)
{
    // A key of the middle of the keyboard, away from the keys that change it.
    const Json::Value keys = keysOf(layout(), "KeyMode_Default");
    const Json::Value key = walk(keys, keys[0], "right_button", 3);
    TestPlace place;
    place.putShippedLayouts(layout());
    place.putFonts();
    const Result result = test_process::run(driverCommand(place, {"kb", "more"}),
                                            "right 3\nright 1\nleft 1\nquit \n");
    EXPECT_EQ(lastProbe(reduce(result.out)),
              "result " + key["text"].asString() + " " + key["keyCode"].asString());
}

// The driver's probe does not print the modifier, so the script is played on the keyboard itself.
TEST_P(ShippedLayout, ShiftedLetterCarriesTheShiftModifier)
{
    TestPlace place;
    place.putShippedLayouts(layout());
    place.putFonts();
    setenv("DFBARGS", "system=dummy,mode=1920x1080,quiet,no-cursor", 1);
    IDirectFB* dfb = nullptr;
    int argc = 0;
    char** argv = nullptr;
    ASSERT_EQ(DirectFBInit(&argc, &argv), DFB_OK);
    ASSERT_EQ(DirectFBCreate(&dfb), DFB_OK);

    KeyBoardCore core;
    core.OnIMEStart(dfb, nullptr);
    for (int i = 0; i < 3; ++i)
        ASSERT_EQ(core.onKeyEvent(kDown), 0);
    ASSERT_EQ(core.onKeyEvent(kEnter), 0);
    const LetterKey letter = letterRightOfShift(layout());
    for (int i = 0; i < letter.steps; ++i)
        ASSERT_EQ(core.onKeyEvent(kRight), 0);
    ASSERT_EQ(core.onKeyEvent(kEnter), 1);

    OsButton_t result;
    core.getKeyBoardButton(result);
    EXPECT_EQ(result.modifier, kShiftModifier);
    EXPECT_EQ(result.text, letter.key["shift_text"].asString());
    EXPECT_EQ(result.character, letter.key["shiftKeyCharacter"].asInt());
    EXPECT_EQ(result.keyCode, letter.key["keyCode"].asInt());

    ASSERT_EQ(core.onKeyEvent(kEnter), 1);
    core.getKeyBoardButton(result);
    EXPECT_EQ(result.modifier, 0) << "Shift was for one key";
    EXPECT_EQ(result.text, letter.key["text"].asString());
}

INSTANTIATE_TEST_SUITE_P(First, ShippedLayout, testing::ValuesIn(shippedLayoutNames()),
                         [](const testing::TestParamInfo<std::string>& test) {
                             std::string name = test.param;
                             for (char& character : name)
                                 if (!std::isalnum(static_cast<unsigned char>(character)))
                                     character = '_';
                             return name;
                         });
