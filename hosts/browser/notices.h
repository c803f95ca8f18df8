// Pages of our own for what went wrong.
#ifndef HOSTS_BROWSER_NOTICES_H
#define HOSTS_BROWSER_NOTICES_H

#include <string>

namespace host
{

// A page that says what went wrong, with one link that looks focused: the browser follows it at OK.
// All are plain text.
std::string noticePage(const std::string& title, const std::string& text, const std::string& label,
                       const std::string& url);

} // namespace host

#endif
