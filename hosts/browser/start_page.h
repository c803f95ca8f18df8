// Which page is opened.
#ifndef HOSTS_BROWSER_START_PAGE_H
#define HOSTS_BROWSER_START_PAGE_H

#include <string>

namespace host
{

// The URL of the page that the browser opens by itself; the pages lie beside the program, or where
// `make install` puts them. Throws std::runtime_error when they are not there.
std::string startPage();

// A URL for what a viewer or a command line gives: a URL, the path of a file, or a host's name.
std::string urlOf(const std::string& words);

} // namespace host

#endif
