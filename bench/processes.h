#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace quorvale {

// A program that runs beside the bench, without output. The destructor ends it.
class ChildProgram {
 public:
  // The first argument is a path, or a name that is looked up in PATH. Fails with kNotFound.
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

// The kernel's figures of a running process. All fail with kNotFound if it is gone.

// CPU time of all its threads, user and system.
double CpuSeconds(pid_t process);

// The peak of its resident memory, shared pages included.
double PeakMegabytes(pid_t process);

// How often its threads have gone to sleep, which is how often they were woken.
long WakeUps(pid_t process);

}  // namespace quorvale
