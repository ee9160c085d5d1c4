#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace quorvale {

// A program that runs beside the bench, without output. Leaving the scope ends it.
class ChildProgram {
 public:
  // Looked for in PATH where it is no path. Fails with kNotFound.
  explicit ChildProgram(std::vector<std::string> arguments);
  ~ChildProgram();
  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;

  pid_t Pid() const { return pid_; }
  bool HasEnded();

 private:
  pid_t pid_ = 0;
  bool ended_ = false;
};

// What the kernel tells about a running process. All fail with kNotFound when it is gone.

// CPU time so far, user and system, of all its threads.
double CpuSeconds(pid_t process);

// The most memory that it has held so far, shared pages included, in megabytes.
double PeakMegabytes(pid_t process);

// How often its threads have gone to sleep so far: each time they were woken first.
long WakeUps(pid_t process);

}  // namespace quorvale
