#ifndef TESTS_DRIVER_DRIVER_RUN_H
#define TESTS_DRIVER_DRIVER_RUN_H

#include <string>
#include <vector>

#include "layout_folder.h"
#include "process.h"

// A place of its own for one test: layouts and fonts that the driver sees at the fixed paths.
class TestPlace
{
public:
    const std::string& root() const { return m_folder.root(); }
    test_support::LayoutFolder& folder() { return m_folder; }

    // The test keyboard (grid_layout.h) with these layouts.
    void putGridLayouts(const std::vector<std::string>& names = {"One", "Two"});
    // The fonts of both modes.
    void putFonts();

private:
    test_support::LayoutFolder m_folder;
};

// The font that stands in for the television's.
std::string testFont();

// The test driver with these arguments in this place, on a display without a screen: pauses take
// no time and stand among the log lines, and the clock stands still but for them.
test_process::Command driverCommand(const TestPlace& place,
                                    const std::vector<std::string>& arguments);

// The same, with the system's own pauses and clock.
test_process::Command driverCommandInRealTime(const TestPlace& place,
                                              const std::vector<std::string>& arguments);

// The same as the first, with each DirectFB call that opens or closes the display written among
// the log lines; the call of this name and number (1 for the first) fails.
test_process::Command driverCommandTraced(const TestPlace& place,
                                          const std::vector<std::string>& arguments,
                                          const std::string& failing_call = "", int number = 1);

#endif
