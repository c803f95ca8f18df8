#ifndef TESTS_KEYBOARD_EXPECTED_PICTURE_H
#define TESTS_KEYBOARD_EXPECTED_PICTURE_H

#include <string>

#include <gtest/gtest.h>

#include "picture.h"

// Compares with the picture of this name in the expected folder. On a difference, leaves expected,
// actual and difference in the failed folder and says where. With the environment variable
// VKB_UPDATE_PICTURES=1 it writes the expected picture instead.
testing::AssertionResult isExpectedPicture(const std::string& name,
                                           const test_support::Picture& actual,
                                           const std::string& expected_folder,
                                           const std::string& failed_folder);

// The same with this suite's folders.
testing::AssertionResult isExpectedPicture(const std::string& name,
                                           const test_support::Picture& actual);

#define EXPECT_PICTURE(name, actual) EXPECT_TRUE(isExpectedPicture(name, actual))

#endif
