#include "text_line.h"

#include <ostream>

#include <gtest/gtest.h>

#include "key_result.h"

namespace
{

using host::KeyAction;
using host::TextLine;

TextLine lineOf(const std::string& text)
{
    TextLine line;
    line.insert(text);
    return line;
}

TEST(TextLine, InsertsAtTheCaret)
{
    TextLine line = lineOf("Gße");
    line.moveLeft();
    line.moveLeft();
    line.insert("rü");
    EXPECT_EQ(line.text(), "Grüße");
    EXPECT_EQ(line.beforeCaret(), "Grü");
}

TEST(TextLine, AnAccentTypedBehindItsLetterMakesOneCharacter)
{
    TextLine line = lineOf("e");
    line.insert("\u0301");
    EXPECT_EQ(line.text(), "\u00E9");
    EXPECT_EQ(line.beforeCaret(), "\u00E9");
}

TEST(TextLine, BackspaceTakesOneCodePoint)
{
    TextLine line = lineOf("aß漢");
    line.eraseBefore();
    EXPECT_EQ(line.text(), "aß");
    line.eraseBefore();
    EXPECT_EQ(line.text(), "a");
    line.eraseBefore();
    line.eraseBefore();
    EXPECT_EQ(line.text(), "");
}

TEST(TextLine, BackspaceTakesAMarkBeforeItsLetter)
{
    TextLine line = lineOf("x\u0301"); // has no composed form
    line.eraseBefore();
    EXPECT_EQ(line.text(), "x");
}

TEST(TextLine, TheCaretGoesOverALetterWithItsMarks)
{
    TextLine line = lineOf("ax\u0301b");
    line.moveLeft();
    line.moveLeft();
    EXPECT_EQ(line.beforeCaret(), "a");
    line.moveRight();
    EXPECT_EQ(line.beforeCaret(), "ax\u0301");
}

TEST(TextLine, DeleteTakesTheWholeCharacterBehindTheCaret)
{
    TextLine line = lineOf("ax\u0301b");
    line.moveLeft();
    line.moveLeft();
    line.eraseAfter();
    EXPECT_EQ(line.text(), "ab");
    line.eraseAfter();
    line.eraseAfter();
    EXPECT_EQ(line.text(), "a");
}

TEST(TextLine, TheCaretStaysInTheText)
{
    TextLine line = lineOf("ü");
    line.moveRight();
    EXPECT_EQ(line.beforeCaret(), "ü");
    line.moveLeft();
    line.moveLeft();
    EXPECT_EQ(line.beforeCaret(), "");
}

TEST(TextLine, RefusesBytesThatAreNoUtf8)
{
    TextLine line = lineOf("a");
    line.insert("\xC3");
    EXPECT_EQ(line.text(), "a");
}

TEST(TextLine, CountsTerminalColumns)
{
    EXPECT_EQ(host::columns("Grüße"), 5);
    EXPECT_EQ(host::columns("漢字"), 4);
    EXPECT_EQ(host::columns("x\u0301"), 1);
}

struct Delivered {
    const char* name;
    int keyCode;
    int character;
    const char* text;
    KeyAction action;
    const char* line; // of "ab" with the caret between both
};

void PrintTo(const Delivered& key, std::ostream* out)
{
    *out << key.name;
}

class KeyResult : public testing::TestWithParam<Delivered>
{
};

TEST_P(KeyResult, ChangesTheLine)
{
    TextLine line = lineOf("ab");
    line.moveLeft();
    const Delivered& key = GetParam();
    const host::Edit edit = host::editOf({key.keyCode, 0, key.character, key.text});
    EXPECT_EQ(edit.action, key.action);
    host::applyEdit(edit, line);
    EXPECT_EQ(line.beforeCaret() + "|" + line.text().substr(line.beforeCaret().size()), key.line);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, KeyResult,
    testing::Values(
        Delivered{"Letter", 65, 'A', "A", KeyAction::Insert, "aA|b"},
        Delivered{"LetterByItsCodePoint", 65, 0xFC, "label", KeyAction::Insert, "aü|b"},
        Delivered{"CodePointBeyond16Bits", 0, 0x1F600, "x", KeyAction::Insert, "a\U0001F600|b"},
        Delivered{"TextOfSeveralCharacters", 0, 0, ".com", KeyAction::Insert, "a.com|b"},
        Delivered{"NoCodePoint", 0, 0xD800, "x", KeyAction::Insert, "ax|b"},
        Delivered{"NegativeCharacter", 0, -1, "x", KeyAction::Insert, "ax|b"},
        Delivered{"Backspace", 8, 0, "Back", KeyAction::EraseBefore, "|b"},
        Delivered{"Delete", 46, 0, "Del", KeyAction::EraseAfter, "a|"},
        Delivered{"FullStopIsNotDelete", 190, '.', ".", KeyAction::Insert, "a.|b"},
        Delivered{"ClearAll", 12, 0, "ClearAll", KeyAction::Clear, "|"},
        Delivered{"Left", 37, 0x2190, "←", KeyAction::CaretLeft, "|ab"},
        Delivered{"Right", 39, 0x2192, "→", KeyAction::CaretRight, "ab|"},
        Delivered{"Enter", 13, 0, "Enter", KeyAction::Submit, "a|b"},
        Delivered{"Tab", 9, 0, "Tab", KeyAction::NextField, "a|b"}),
    [](const testing::TestParamInfo<Delivered>& test) { return test.param.name; });

} // namespace
