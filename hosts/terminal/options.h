#ifndef HOSTS_TERMINAL_OPTIONS_H
#define HOSTS_TERMINAL_OPTIONS_H

#include <optional>
#include <string>

#include "terminal_picture.h"

namespace host
{

struct Options {
    std::optional<std::string> type; // the text to type, or nothing: the user types
    bool plan = false;               // only print the presses
    std::string record;              // file, empty: none
    std::string log;                 // file, empty: none
    PictureMode picture = PictureMode::Auto;
    int delay = 60; // milliseconds between two planned presses
};

// Returns nothing when the program is to end at once with status (help, a wrong option); the
// words for the user are then written.
std::optional<Options> readOptions(int argc, char** argv, int& status);

} // namespace host

#endif
