#include "planner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "key_result.h"
#include "text_line.h"

namespace
{

using host::Face;
using host::KeyboardModel;
using host::KeyboardState;
using host::Layout;
using host::Plan;
using host::Press;
using host::TextLine;
using testing::Contains;
using testing::ElementsAre;
using testing::SizeIs;
using velmora::browser::vkb::Button_t;

Button_t letter(const std::string& text, int character)
{
    Button_t key = {};
    key.text = text;
    key.keyCode = 65;
    key.character = character;
    return key;
}

Button_t special(const std::string& text, bool isLanguage = false)
{
    Button_t key = {};
    key.text = text;
    key.isSpecial = true;
    key.isLanguage = isLanguage;
    return key;
}

Button_t enter()
{
    Button_t key = {};
    key.text = "Enter";
    key.keyCode = 13;
    return key;
}

// One row; left and right wrap, there is nothing above and below.
Face row(std::vector<Button_t> keys)
{
    const int count = static_cast<int>(keys.size());
    for (int i = 0; i < count; ++i) {
        Button_t& key = keys[static_cast<size_t>(i)];
        key.id = i;
        key.left_button = (i + count - 1) % count;
        key.right_button = (i + 1) % count;
        key.up_button = -1;
        key.down_button = count;
    }
    return keys;
}

Layout layoutOf(const std::string& name, const std::vector<Button_t>& letters)
{
    // 0 Enter, 1 Shift, 2 Alt, 3 language, 4 ... the letters
    const auto face = [&](const std::string& end) {
        std::vector<Button_t> keys = {enter(), special("Shift"), special("Alt"),
                                      special(name.substr(0, 2), true)};
        for (Button_t key : letters) {
            key.text += end;
            key.character = end.empty() ? key.character : 0;
            keys.push_back(key);
        }
        return row(keys);
    };
    Layout layout;
    layout.name = name;
    layout.faces[0][0] = face("");
    layout.faces[1][0] = face("S");
    layout.faces[0][1] = face("A");
    layout.faces[1][1] = face("SA");
    return layout;
}

KeyboardModel twoLayouts()
{
    return KeyboardModel({layoutOf("English", {letter("a", 'a'), letter("e", 'e')}),
                          layoutOf("German", {letter("ü", 0xFC), letter("\u0301", 0x301)})});
}

// What the model says that the plan types.
std::string played(const KeyboardModel& model, const Plan& plan, bool& submitted)
{
    TextLine line;
    KeyboardState state;
    submitted = false;
    for (const Press press : plan.presses) {
        const KeyboardModel::Step step = model.after(state, press);
        state = step.state;
        if (step.result == nullptr)
            continue;
        const host::Edit edit =
            host::editOf({step.result->keyCode, 0, step.result->character, step.result->text});
        host::applyEdit(edit, line);
        submitted = edit.action == host::KeyAction::Submit;
    }
    return line.text();
}

// Tries every row of so many presses, the plan itself aside.
bool anyWayTypes(const KeyboardModel& model, const std::string& text, size_t presses)
{
    const Press all[] = {Press::Left, Press::Up, Press::Right, Press::Down, Press::Ok};
    Plan plan;
    plan.presses.assign(presses, Press::Left);
    std::vector<size_t> digits(presses, 0);
    while (true) {
        bool submitted = false;
        if (played(model, plan, submitted) == text && submitted)
            return true;
        size_t at = 0;
        while (at < presses && ++digits[at] == 5)
            digits[at++] = 0;
        if (at == presses)
            return false;
        for (size_t i = 0; i <= at; ++i)
            plan.presses[i] = all[digits[i]];
    }
}

void expectTypes(const std::string& text, size_t presses)
{
    const KeyboardModel model = twoLayouts();
    const Plan plan = planTyping(model, KeyboardState(), text);
    ASSERT_TRUE(plan.possible) << text;
    bool submitted = false;
    EXPECT_EQ(played(model, plan, submitted), text);
    EXPECT_TRUE(submitted);
    EXPECT_EQ(plan.presses.size(), presses) << text;
}

TEST(Planner, NothingToTypeIsOnlyTheEnterKey)
{
    const Plan plan = planTyping(twoLayouts(), KeyboardState(), "");
    EXPECT_THAT(plan.presses, ElementsAre(Press::Ok));
}

TEST(Planner, TakesTheShorterWayRound)
{
    const Plan plan = planTyping(twoLayouts(), KeyboardState(), "e");
    EXPECT_THAT(plan.presses, ElementsAre(Press::Left, Press::Ok, Press::Right, Press::Ok));
}

TEST(Planner, OneShiftForOneKeyAndTwoToLock)
{
    // Right, OK (Shift); 3 rights, OK; right, right, OK (Enter).
    expectTypes("aS", 9);
    // Once for each of three would be 3 walks back to Shift; locking it costs one press more.
    expectTypes("aSaSaS", 12);
}

TEST(Planner, ThereIsNoShorterWay)
{
    const KeyboardModel model = twoLayouts();
    for (const std::string text : {"a", "e", "ee", "eS", "aA"}) {
        const size_t presses = planTyping(model, KeyboardState(), text).presses.size();
        ASSERT_LE(presses, 9U) << text;
        EXPECT_TRUE(anyWayTypes(model, text, presses)) << text;
        EXPECT_FALSE(anyWayTypes(model, text, presses - 1)) << text;
    }
}

TEST(Planner, GoesOverAlt)
{
    expectTypes("aA", 9);
    expectTypes("aSA", 10);
}

TEST(Planner, GoesOverTheLanguageKey)
{
    // Left 3, OK (language); right, OK (ü); left, OK (back to English); right, OK (a); 2, OK.
    expectTypes("üa", 13);
}

TEST(Planner, TypesALetterByItsAccentWhereNoKeyHasBoth)
{
    // Left, OK (e); left 2, OK (language); right 2, OK (the accent); right, OK (Enter).
    expectTypes("é", 10);
}

TEST(Planner, SaysWhichCharacterCannotBeTyped)
{
    const KeyboardModel model = twoLayouts();
    EXPECT_EQ(planTyping(model, KeyboardState(), "aüж").obstacle, "ж");
    EXPECT_EQ(planTyping(model, KeyboardState(), "aö").obstacle, "ö");
    EXPECT_FALSE(planTyping(model, KeyboardState(), "ж").possible);
}

TEST(Planner, SaysWhenThereIsNoEnterKey)
{
    Layout layout = layoutOf("English", {letter("a", 'a')});
    for (auto& shifted : layout.faces)
        for (Face& face : shifted)
            face[0].keyCode = 8;
    const Plan plan = planTyping(KeyboardModel({layout}), KeyboardState(), "a");
    EXPECT_FALSE(plan.possible);
    EXPECT_EQ(plan.obstacle, "");
}

TEST(Planner, NoKeysNoPlan)
{
    EXPECT_FALSE(planTyping(KeyboardModel({}), KeyboardState(), "a").possible);
    EXPECT_FALSE(planTyping(KeyboardModel({Layout()}), KeyboardState(), "a").possible);
}

TEST(Planner, AKeyOfSeveralCharactersIsOnePress)
{
    const KeyboardModel model({layoutOf(
        "English", {letter(".com", 0), letter(".", '.'), letter("c", 'c'), letter("o", 'o')})});
    const Plan plan = planTyping(model, KeyboardState(), ".com");
    bool submitted = false;
    EXPECT_EQ(played(model, plan, submitted), ".com");
    EXPECT_THAT(plan.presses, SizeIs(10)); // four keys away, and back
    EXPECT_THAT(plan.presses, Contains(Press::Ok).Times(2));
}

TEST(KeyboardModel, StaysWhereThereIsNoNeighbour)
{
    const KeyboardModel model = twoLayouts();
    const KeyboardState start;
    EXPECT_TRUE(model.after(start, Press::Up).state == start);
    EXPECT_TRUE(model.after(start, Press::Down).state == start);
}

TEST(KeyboardModel, AHideKeyHides)
{
    const KeyboardModel model({layoutOf("English", {special("Hide")})});
    KeyboardState state;
    state.key = 4;
    EXPECT_TRUE(model.after(state, Press::Ok).hides);
}

} // namespace
