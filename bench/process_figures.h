#pragma once

#include <sys/types.h>

#include <string>

namespace quorvale {

// What the kernel tells about a running process. All fail with kNotFound when it is gone.

// CPU time so far, user and system, of all its threads.
double CpuSeconds(pid_t process);

// The most memory that it has held so far, shared pages included, in megabytes.
double PeakMegabytes(pid_t process);

// How often its threads have gone to sleep so far: each time they were woken first.
long WakeUps(pid_t process);

}  // namespace quorvale
