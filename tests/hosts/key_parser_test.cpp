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
    EXPECT_THAT(parser.feed("A"), IsEmpty());
}

TEST(KeyParser, OtherKeysAreLeftAlone)
{
    KeyParser parser;
    EXPECT_THAT(parser.feed("x\x1b[3~\x1b[Hy"), IsEmpty());
}

TEST(KeyParser, ReadsWhetherTheTerminalShowsSixel)
{
    KeyParser parser;
    EXPECT_THAT(parser.feed("\x1b[?62;4;22c"), ElementsAre(Input::SixelAnswer));
    EXPECT_THAT(parser.feed("\x1b[?62;4c"), ElementsAre(Input::SixelAnswer));
    EXPECT_THAT(parser.feed("\x1b[?4;6c"), IsEmpty()); // the first number is the terminal's kind
    EXPECT_THAT(parser.feed("\x1b[?62;14;22c"), IsEmpty());
}

} // namespace
