// The records that carry keys and results through the keyboard.

#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "keyboard_types.h"

namespace
{

using namespace velmora::browser::vkb;

static_assert(std::is_aggregate_v<Rect_t> && std::is_trivially_copyable_v<Rect_t>);
static_assert(std::is_aggregate_v<Button_t> && !std::is_polymorphic_v<Button_t>);
static_assert(std::is_nothrow_move_constructible_v<Button_t>);
static_assert(std::is_aggregate_v<OsButton_t> && !std::is_polymorphic_v<OsButton_t>);
static_assert(std::is_same_v<decltype(Rect_t::positionX), int16_t>);
static_assert(std::is_same_v<decltype(Rect_t::positionY), int16_t>);
static_assert(std::is_same_v<decltype(Rect_t::width), int16_t>);
static_assert(std::is_same_v<decltype(Rect_t::height), int16_t>);
static_assert(sizeof(Rect_t) == 8);

// A label longer than what a string keeps inside itself.
const char kLongLabel[] = "a label that no short string buffer has ever had the room to hold";

Button_t longButton()
{
    return {kLongLabel, {1, 2, 3, 4}, 5, true, false, 6, 7, 8, 9, 10, 11};
}

void expectEqual(const Button_t& found, const Button_t& expected)
{
    EXPECT_EQ(found.text, expected.text);
    EXPECT_EQ(found.rect.positionX, expected.rect.positionX);
    EXPECT_EQ(found.rect.positionY, expected.rect.positionY);
    EXPECT_EQ(found.rect.width, expected.rect.width);
    EXPECT_EQ(found.rect.height, expected.rect.height);
    EXPECT_EQ(found.id, expected.id);
    EXPECT_EQ(found.isSpecial, expected.isSpecial);
    EXPECT_EQ(found.isLanguage, expected.isLanguage);
    EXPECT_EQ(found.keyCode, expected.keyCode);
    EXPECT_EQ(found.character, expected.character);
    EXPECT_EQ(found.left_button, expected.left_button);
    EXPECT_EQ(found.right_button, expected.right_button);
    EXPECT_EQ(found.up_button, expected.up_button);
    EXPECT_EQ(found.down_button, expected.down_button);
}

TEST(Records, AButtonsFieldsAreInTheirOrder)
{
    const Button_t button = longButton();
    EXPECT_EQ(button.text, kLongLabel);
    EXPECT_EQ(button.rect.positionX, 1);
    EXPECT_EQ(button.rect.positionY, 2);
    EXPECT_EQ(button.rect.width, 3);
    EXPECT_EQ(button.rect.height, 4);
    EXPECT_EQ(button.id, 5);
    EXPECT_TRUE(button.isSpecial);
    EXPECT_FALSE(button.isLanguage);
    EXPECT_EQ(button.keyCode, 6);
    EXPECT_EQ(button.character, 7);
    EXPECT_EQ(button.left_button, 8);
    EXPECT_EQ(button.right_button, 9);
    EXPECT_EQ(button.up_button, 10);
    EXPECT_EQ(button.down_button, 11);
}

TEST(Records, AResultsFieldsAreInTheirOrder)
{
    const OsButton_t result = {1, 2, 3, "text"};
    EXPECT_EQ(result.keyCode, 1);
    EXPECT_EQ(result.modifier, 2);
    EXPECT_EQ(result.character, 3);
    EXPECT_EQ(result.text, "text");
}

TEST(Records, CopyingAListCopiesEveryFieldAndTheLabelItself)
{
    const std::vector<Button_t> original = {longButton(), longButton()};
    std::vector<Button_t> copy = original;
    ASSERT_EQ(copy.size(), original.size());
    for (size_t i = 0; i < copy.size(); ++i) {
        expectEqual(copy[i], original[i]);
        EXPECT_NE(copy[i].text.data(), original[i].text.data());
    }
    copy[0].text[0] = 'A';
    EXPECT_EQ(original[0].text, kLongLabel);
}

} // namespace
