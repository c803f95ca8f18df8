// The script that tells which field of a page is entered.
#ifndef HOSTS_BROWSER_FIELD_WATCH_H
#define HOSTS_BROWSER_FIELD_WATCH_H

namespace host
{

// field_watch.js
extern const char* const kFieldWatch;

} // namespace host

#endif
