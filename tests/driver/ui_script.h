#ifndef UI_SCRIPT_H
#define UI_SCRIPT_H

#include <string>

#include "transcript.h"

// What the steps of the kbui mode leave in a transcript with the renderer's lines.
namespace ui_script
{

using transcript::Lines;

const int kTestKeys = 19;
const int kPressedKey = 3;
const int kLockedKey = 15;

// How much of the renderer's work shows: detail lines have the level 5000.
enum class Detail { OFF, ON };

// One key being painted: shows only with details.
std::string paintedKey(int key);

// A repaint of all keys, and of these locked ones after them.
Lines draw(Detail detail, const std::vector<int>& locked = {});

Lines show(Detail detail, const std::vector<int>& locked = {}); // hidden before
Lines hide();                                                   // shown before
Lines setFocus(Detail detail, const std::vector<int>& locked = {});

// The lines of a run before its command: arguments, start of the renderer.
Lines start(const std::string& command, const std::string& parameter, int arguments = 4);

// A command between two readings of the clock, with its time line.
Lines timed(const Lines& script, const std::string& text, int milliseconds);

} // namespace ui_script

#endif
