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

}  // namespace quorvale
