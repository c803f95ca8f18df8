// The records that carry keys and results through the keyboard.

#include <cstdint>
#include <string>
#include <tuple>
#include <type_traits>

#include <gtest/gtest.h>

#include "layout_sample.h"

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
static_assert(std::is_same_v<decltype(OsButton_t::keyCode), int32_t>);
static_assert(std::is_same_v<decltype(OsButton_t::modifier), int32_t>);
static_assert(std::is_same_v<decltype(OsButton_t::character), int32_t>);

TEST(Records, TheirFieldsAreInTheirOrder)
{
    const Button_t button = {"text", {1, 2, 3, 4}, 5, true, false, 6, 7, 8, 9, 10, 11};
    EXPECT_EQ(fieldsOf(button),
              std::make_tuple("text", 1, 2, 3, 4, 5, true, false, 6, 7, 8, 9, 10, 11));
    const OsButton_t result = {1, 2, 3, "text"};
    EXPECT_EQ(std::tie(result.keyCode, result.modifier, result.character, result.text),
              std::make_tuple(1, 2, 3, "text"));
}

} // namespace
