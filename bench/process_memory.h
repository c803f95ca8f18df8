#ifndef BENCH_PROCESS_MEMORY_H
#define BENCH_PROCESS_MEMORY_H

namespace bench
{

// KiB of this process that are resident now, counted page by page; 0 when the system does not
// say.
long residentKiB();

} // namespace bench

#endif
