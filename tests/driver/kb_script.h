#ifndef KB_SCRIPT_H
#define KB_SCRIPT_H

#include <string>

#include "transcript.h"

// What the steps of a kb script leave in a reduced transcript.
namespace kb_script
{

using transcript::Lines;

const int kEnter = 13;
const int kLeft = 37;
const int kUp = 38;
const int kRight = 39;
const int kDown = 40;

// A key without a pause, and one with the step pause behind it.
Lines press(int key);
Lines move(int key);

// Enter, and what it brought: a key result, or the answer to Enter. between: what the keyboard
// did in the meantime.
Lines probeResult(const std::string& text, int key_code);
Lines probeAnswer(int answer, const Lines& between = {});

// The probes of the test keyboard's special keys.
Lines probeShift(int mode);
Lines probeAlt(int mode);
Lines probeLanguage(const std::string& next_layout);
Lines probeHide();

// The lines of a run before its command: arguments, start of the keyboard.
Lines start(const std::string& command, const std::string& parameter, int arguments = 4,
            const std::string& first_layout = "One");

// A command with its time line, between two readings of the clock.
Lines timed(const Lines& script, int line, const std::string& text, int milliseconds);

} // namespace kb_script

#endif
