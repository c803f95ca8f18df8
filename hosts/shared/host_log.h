#ifndef HOSTS_SHARED_HOST_LOG_H
#define HOSTS_SHARED_HOST_LOG_H

#include <string>

namespace host
{

// From now on the keyboard's log lines are appended to this file; before, or without it, they
// are not written at all. Returns false when the file cannot be opened.
bool openLog(const std::string& file);

// While true, no line is written: the keyboard's lines tell what is typed, and a password is
// nobody's business.
void holdLog(bool hold);

} // namespace host

#endif
