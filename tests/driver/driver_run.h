#ifndef TESTS_DRIVER_DRIVER_RUN_H
#define TESTS_DRIVER_DRIVER_RUN_H

#include <string>
#include <vector>

#include "process.h"
#include "row.h"
#include "test_place.h"
#include "transcript.h"

// The test driver with these arguments in this place, on a display without a screen: pauses take
// no time and stand among the log lines, and the clock stands still but for them.
test_process::Command driverCommand(const TestPlace& place, const transcript::Lines& arguments);

// The same, with the system's own pauses and clock.
test_process::Command driverCommandInRealTime(const TestPlace& place,
                                              const transcript::Lines& arguments);

// The same as the first, with each DirectFB call that opens or closes the display written among
// the log lines; the call of this name and number (1 for the first) fails.
test_process::Command driverCommandTraced(const TestPlace& place,
                                          const transcript::Lines& arguments,
                                          const std::string& failing_call = "", int number = 1);

// A run in a place of its own: what is typed, and what it prints, reduced. It ends well, or by an
// exception with this text.
struct Run : test_support::Row {
    transcript::Lines arguments;
    std::string input;
    transcript::Lines expected;
    std::string error = "";
    std::string level = ""; // of the log; empty: its default
};

// A suite for tables of runs.
using DriverRun = testing::TestWithParam<Run>;

test_process::Result expectRun(const Run& run, const TestPlace& place = TestPlace());

#endif
