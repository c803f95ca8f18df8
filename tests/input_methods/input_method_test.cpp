// What all languages share, with an engine whose answers are known.
#include "input_method.h"

#include <memory>

#include <gmock/gmock.h>

#include "scripted_engine.h"
#include "text_field.h"

namespace input_methods_test
{

using input_methods::Answer;
using input_methods::InputMethod;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

class ScriptedMethod : public testing::Test
{
protected:
    void offer(std::vector<std::string> candidates)
    {
        m_method =
            std::make_unique<InputMethod>(std::make_unique<ScriptedEngine>(std::move(candidates)));
        m_field = std::make_unique<TextField>(*m_method);
    }

    TextField& field() { return *m_field; }

private:
    std::unique_ptr<InputMethod> m_method;
    std::unique_ptr<TextField> m_field;
};

TEST_F(ScriptedMethod, LetsAKeyThroughThatIsNotTheLanguages)
{
    offer({});
    EXPECT_FALSE(field().type("A").used);
    EXPECT_EQ(field().text(), "A");
}

TEST_F(ScriptedMethod, ShowsWhatIsComposedAndWhatToChoose)
{
    offer({"甲", "乙"});
    const Answer& answer = field().type("ab");
    EXPECT_TRUE(answer.used);
    EXPECT_EQ(answer.preedit, "ab");
    EXPECT_THAT(answer.candidates, ElementsAre("甲", "乙"));
    EXPECT_EQ(answer.chosen, 0);
    EXPECT_FALSE(answer.hasPrevious);
    EXPECT_FALSE(answer.hasNext);
    EXPECT_EQ(field().text(), "");
}

TEST_F(ScriptedMethod, CommitsBeforeALetterThatIsNotTheLanguages)
{
    offer({"甲"});
    EXPECT_FALSE(field().type("ab.").used);
    EXPECT_EQ(field().text(), "ab.");
    EXPECT_EQ(field().last().preedit, "");
}

TEST_F(ScriptedMethod, SpaceTakesTheFirst)
{
    offer({"甲", "乙"});
    EXPECT_TRUE(field().type("a ").used);
    EXPECT_EQ(field().text(), "甲");
}

TEST_F(ScriptedMethod, SpaceIsTheHostsWithNothingToChoose)
{
    offer({});
    EXPECT_FALSE(field().type("a ").used);
    EXPECT_EQ(field().text(), "a ");
}

TEST_F(ScriptedMethod, DigitsChooseWhileThereIsSomethingToChoose)
{
    offer({"甲", "乙"});
    EXPECT_TRUE(field().type("a2").used);
    EXPECT_EQ(field().text(), "乙");
    EXPECT_FALSE(field().type("2").used);
    EXPECT_EQ(field().text(), "乙2");
}

TEST_F(ScriptedMethod, ADigitWithoutACandidateIsNoText)
{
    offer({"甲", "乙"});
    EXPECT_TRUE(field().type("a7").used);
    EXPECT_EQ(field().text(), "");
    EXPECT_EQ(field().last().preedit, "a");
}

TEST_F(ScriptedMethod, ZeroIsNoChoice)
{
    offer({"甲"});
    EXPECT_FALSE(field().type("a0").used);
    EXPECT_EQ(field().text(), "a0");
}

TEST_F(ScriptedMethod, ChoosesByNumber)
{
    offer({"甲", "乙丙"});
    field().type("abc");
    EXPECT_FALSE(field().choose(0).used);
    EXPECT_FALSE(field().choose(3).used);
    EXPECT_EQ(field().last().preedit, "abc");
    EXPECT_TRUE(field().choose(2).used);
    EXPECT_EQ(field().text(), "乙丙");
    EXPECT_EQ(field().last().preedit, "c");
}

TEST_F(ScriptedMethod, BackShortensAndIsThenTheHosts)
{
    offer({"甲"});
    field().type("AB");
    field().type("ab");
    EXPECT_TRUE(field().press(kBack).used);
    EXPECT_EQ(field().last().preedit, "a");
    EXPECT_TRUE(field().press(kBack).used);
    EXPECT_EQ(field().last().preedit, "");
    EXPECT_THAT(field().last().candidates, IsEmpty());
    EXPECT_EQ(field().text(), "AB");
    EXPECT_FALSE(field().press(kBack).used);
    EXPECT_EQ(field().text(), "A");
}

TEST_F(ScriptedMethod, ClearAllDropsWhatIsComposed)
{
    offer({"甲"});
    field().type("Xab");
    EXPECT_FALSE(field().press(kClearAll).used);
    EXPECT_EQ(field().text(), "");
    EXPECT_EQ(field().last().preedit, "");
}

TEST_F(ScriptedMethod, ResetCommitsNothing)
{
    offer({"甲"});
    field().type("ab");
    field().reset();
    EXPECT_EQ(field().text(), "");
    EXPECT_EQ(field().last().preedit, "");
}

// Enter and Tab carry the characters 13 and 9: their codes come first.
TEST_F(ScriptedMethod, CommitsAtEnterTabAndDel)
{
    for (const int code : {kEnter, kTab, kDel}) {
        offer({"甲"});
        field().type("ab");
        EXPECT_FALSE(field().press(code).used) << code;
        EXPECT_EQ(field().text(), "ab") << code;
        EXPECT_EQ(field().last().preedit, "") << code;
    }
}

TEST_F(ScriptedMethod, CaretKeysAreTheHostsWithNothingToChoose)
{
    offer({});
    field().type("ab");
    EXPECT_FALSE(field().press(kLeft).used);
    EXPECT_EQ(field().text(), "ab");
}

TEST_F(ScriptedMethod, CaretKeysTurnThePages)
{
    std::vector<std::string> many;
    for (char letter = 'A'; letter <= 'T'; ++letter)
        many.push_back(std::string(1, letter));
    offer(many);
    field().type("a");
    EXPECT_THAT(field().last().candidates,
                ElementsAre("A", "B", "C", "D", "E", "F", "G", "H", "I"));
    EXPECT_TRUE(field().last().hasNext);
    EXPECT_TRUE(field().press(kLeft).used); // there is none before: the caret stays in the word
    EXPECT_EQ(field().last().candidates[0], "A");
    EXPECT_TRUE(field().press(kRight).used);
    EXPECT_TRUE(field().last().hasPrevious);
    EXPECT_TRUE(field().last().hasNext);
    EXPECT_TRUE(field().press(kRight).used);
    EXPECT_THAT(field().last().candidates, ElementsAre("S", "T"));
    EXPECT_FALSE(field().last().hasNext);
    EXPECT_TRUE(field().press(kRight).used);
    EXPECT_THAT(field().last().candidates, ElementsAre("S", "T"));
    EXPECT_TRUE(field().press(kLeft).used);
    EXPECT_EQ(field().last().candidates[0], "J");
    field().type("3");
    EXPECT_EQ(field().text(), "L");
}

TEST_F(ScriptedMethod, ALetterGoesBackToTheFirstPage)
{
    offer({"A", "B", "C", "D", "E", "F", "G", "H", "I", "J"});
    field().type("a");
    field().page(1);
    field().type("b");
    EXPECT_EQ(field().last().candidates[0], "A");
    EXPECT_FALSE(field().last().hasPrevious);
}

TEST_F(ScriptedMethod, APageHoldsThirtyLetters)
{
    offer({std::string(40, 'x'), std::string(20, 'y'), std::string(10, 'z'), "u"});
    field().type("a");
    EXPECT_THAT(field().last().candidates, ElementsAre(std::string(40, 'x')));
    EXPECT_TRUE(field().page(1).used);
    EXPECT_THAT(field().last().candidates, ElementsAre(std::string(20, 'y'), std::string(10, 'z')));
    EXPECT_TRUE(field().page(1).used);
    EXPECT_THAT(field().last().candidates, ElementsAre("u"));
    EXPECT_FALSE(field().page(1).used);
}

TEST_F(ScriptedMethod, ComposesFortyLettersAndThenMakesRoom)
{
    offer({});
    field().type(std::string(40, 'a'));
    EXPECT_EQ(field().last().preedit, std::string(40, 'a'));
    EXPECT_EQ(field().text(), "");
    field().type("b");
    EXPECT_EQ(field().text(), std::string(40, 'a'));
    EXPECT_EQ(field().last().preedit, "b");
}

TEST_F(ScriptedMethod, MakesRoomByTheFirstCandidate)
{
    offer({"甲乙"});
    field().type(std::string(40, 'a') + "b");
    EXPECT_EQ(field().text(), "甲乙");
    EXPECT_EQ(field().last().preedit, std::string(38, 'a') + "b");
}

// The best one may stand for a word of which only some letters are typed.
TEST_F(ScriptedMethod, MakesRoomByAShorterCandidate)
{
    offer({"甲乙丙", "丁戊己", "甲乙", "甲"});
    field().type(std::string(40, 'a') + "b");
    EXPECT_EQ(field().text(), "甲乙");
    EXPECT_EQ(field().last().preedit, std::string(38, 'a') + "b");
}

TEST_F(ScriptedMethod, TakesAKeyBesideItsText)
{
    offer({});
    velmora::browser::vkb::OsButton_t key = keyWithText("b");
    key.character = 'a'; // the code point is what is typed
    InputMethod method(std::make_unique<ScriptedEngine>(std::vector<std::string>()));
    EXPECT_EQ(method.feed(key).preedit, "a");
    EXPECT_FALSE(method.feed(keyWithText(".com")).used);
    EXPECT_FALSE(method.feed(keyWithText("")).used);
}

} // namespace

} // namespace input_methods_test
