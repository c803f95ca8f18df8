#ifndef HOSTS_SHARED_STANDARD_STREAMS_H
#define HOSTS_SHARED_STANDARD_STREAMS_H

namespace host
{

// Whether standard input and standard output were open when the program started.
bool startedWithInput();
bool startedWithOutput();

} // namespace host

#endif
