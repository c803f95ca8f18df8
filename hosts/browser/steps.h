// The file of a played session.
#ifndef HOSTS_BROWSER_STEPS_H
#define HOSTS_BROWSER_STEPS_H

#include <string>
#include <vector>

namespace host
{

enum class StepKind {
    Press,        // text: the remote control's key
    Type,         // text: to type
    Key,          // text: the keyboard's key
    Choose,       // text: the candidate
    WaitKeyboard, // text: shown or hidden
    WaitTitle,    // text: that the title contains
    WaitPage,     // text: that the page's visible text contains
    Picture,      // text: the file
    Reload,
    Back,
};

// One line of a played session.
struct Step {
    StepKind kind;
    std::string text;
    int count = 1;     // of presses
    std::string where; // FILE:LINE, for messages
    std::string words; // the line itself
};

// Reads a file of steps, one a line; empty lines and those that begin with # are none. Throws
// std::runtime_error that names the line for one that is no step.
std::vector<Step> readSteps(const std::string& file);

} // namespace host

#endif
