// The command line of browser_host.
#ifndef HOSTS_BROWSER_OPTIONS_H
#define HOSTS_BROWSER_OPTIONS_H

#include <optional>
#include <string>

namespace host
{

struct Options {
    std::string url;    // empty: the start page
    std::string play;   // file of steps, empty: none
    std::string record; // file, empty: none
    std::string log;    // file, empty: none
    int patience = 10;  // seconds
};

// Returns nothing when the program is to end at once with status (help, a wrong option); the words
// for the user are then written.
std::optional<Options> readOptions(int argc, char** argv, int& status);

} // namespace host

#endif
