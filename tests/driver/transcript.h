#ifndef TESTS_DRIVER_TRANSCRIPT_H
#define TESTS_DRIVER_TRANSCRIPT_H

#include <string>

#include "trace.h"

// What a run of the driver printed, reduced to the lines that a test of its scripts looks at.
namespace transcript
{

using test_support::Lines;
using test_support::text;

// A log line of the driver, whole: line is the number that testers' tools look for, or 0 for one of
// the renderer's tests, whose lines have no fixed numbers.
std::string logLine(const std::string& file, int line, const std::string& function,
                    const std::string& message);
std::string mainLine(int line, const std::string& message);
std::string kbLine(int line, const std::string& function, const std::string& message);
std::string kbUiLine(const std::string& function, const std::string& message);

// The usage of the kb mode, whole, with the newline at its end.
std::string kbUsage(const std::string& file, int line, const std::string& function);

// The driver's own lines whole, those of kb_ui_test with the number 0; the seams' lines
// ("usleep 500000", "clock", ...) as they are; and of the keyboard: "key K" for a received key
// code, "result TEXT CODE" for a key result, "show", "hide", "layout NAME", "mode FUNCTION N" for
// Shift and Alt. Each usage line of the kb mode is one line, "usage LINE". In the kbui mode each
// line of the renderer is "ui FUNCTION MESSAGE".
Lines reduce(const std::string& output);

Lines operator+(Lines left, const Lines& right);
Lines operator*(int times, const Lines& lines);

} // namespace transcript

#endif
