#include "key_parser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using host::Input;
using host::KeyParser;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(KeyParser, KnowsTheKeys)
{
    KeyParser parser;
    EXPECT_THAT(parser.feed("\x1b[A\x1b[B\x1b[C\x1b[D\r\n\x04"),
                ElementsAre(Input::Up, Input::Down, Input::Right, Input::Left, Input::Ok, Input::Ok,
                            Input::EndOfInput));
}

TEST(KeyParser, KnowsApplicationModeAndModifiers)
{
    KeyParser parser;
    EXPECT_THAT(parser.feed("\x1bOA\x1bOM\x1b[1;5C"),
                ElementsAre(Input::Up, Input::Ok, Input::Right));
}

TEST(KeyParser, ASequenceMayComeInPieces)
{
    KeyParser parser;
    EXPECT_THAT(parser.feed("\x1b"), IsEmpty());
    EXPECT_TRUE(parser.waiting());
    EXPECT_THAT(parser.feed("["), IsEmpty());
    EXPECT_THAT(parser.feed("A"), ElementsAre(Input::Up));
    EXPECT_FALSE(parser.waiting());
}

TEST(KeyParser, EscapeAloneIsAKeyOnceNothingFollows)
{
    KeyParser parser;
    EXPECT_THAT(parser.feed("\x1b"), IsEmpty());
    EXPECT_THAT(parser.idle(), ElementsAre(Input::Escape));
    EXPECT_THAT(parser.idle(), IsEmpty());
}

TEST(KeyParser, EscapeBeforeAnotherKeyIsBothKeys)
{
    KeyParser parser;
    EXPECT_THAT(parser.feed("\x1b\r"), ElementsAre(Input::Escape, Input::Ok));
}

TEST(KeyParser, AnUnfinishedSequenceIsNoKey)
{
    KeyParser parser;
    EXPECT_THAT(parser.feed("\x1b[1;"), IsEmpty());
    EXPECT_THAT(parser.idle(), IsEmpty());
    EXPECT_THAT(parser.feed("A"), ElementsAre(Input("A")));
}

TEST(KeyParser, OtherKeysAreLeftAlone)
{
    KeyParser parser;
    EXPECT_THAT(parser.feed("\x1b[3~\x1b[H\t\x01"), IsEmpty());
}

TEST(KeyParser, LettersAreTextInPiecesToo)
{
    KeyParser parser;
    EXPECT_THAT(parser.feed("aß\xE6\xBC"), ElementsAre(Input("a"), Input("ß")));
    EXPECT_THAT(parser.feed("\xA2 \x7f"), ElementsAre(Input("漢"), Input(" "), Input::EraseBefore));
    EXPECT_THAT(parser.feed("\xFFz"), ElementsAre(Input("z")));
    EXPECT_THAT(parser.feed("\x1bx"), ElementsAre(Input::Escape)); // a shortcut's letter is no text
}

TEST(KeyParser, ReadsWhetherTheTerminalShowsSixel)
{
    KeyParser parser;
    const Input yes(Input::Attributes, 1);
    const Input no(Input::Attributes, 0);
    EXPECT_THAT(parser.feed("\x1b[?62;4;22c"), ElementsAre(yes));
    EXPECT_THAT(parser.feed("\x1b[?62;4c"), ElementsAre(yes));
    EXPECT_THAT(parser.feed("\x1b[?4;6c"), ElementsAre(no)); // the first number is the kind
    EXPECT_THAT(parser.feed("\x1b[?62;14;22c"), ElementsAre(no));
    EXPECT_THAT(parser.feed("\x1b[c"), IsEmpty());
}

TEST(KeyParser, ReadsTheOtherAnswers)
{
    KeyParser parser;
    EXPECT_THAT(parser.feed("\x1b[?2;0;1000;800S"),
                ElementsAre(Input(Input::SixelLimit, 1000, 800)));
    EXPECT_THAT(parser.feed("\x1b[?2;3;0S\x1b[?2;0;0;0S\x1b[?1;0;256S"), IsEmpty());
    EXPECT_THAT(parser.feed("\x1b[1;3R"), ElementsAre(Input(Input::CursorAt, 1, 3)));
    EXPECT_THAT(parser.feed("\x1b[R\x1b[1R\x1b[1;3;5R\x1b[1;99999999999R"), IsEmpty());
    EXPECT_THAT(parser.feed("\x1b[?2;0;1000S\x1b[?2;0;1000;99999999999S"), IsEmpty());
}

} // namespace
