#include "child_program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "base/failure.h"

namespace quorvale {

ChildProgram::ChildProgram(std::vector<std::string> arguments) {
  std::vector<char*> pointers;
  pointers.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  const int error = posix_spawnp(&pid_, pointers[0], &actions, nullptr, pointers.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw Failure(FailureNumber::kNotFound, "Can't start " + arguments[0], "bench");
}

ChildProgram::~ChildProgram() {
  if (HasEnded()) return;
  kill(pid_, SIGTERM);
  waitpid(pid_, nullptr, 0);
}

bool ChildProgram::HasEnded() {
  if (!ended_) ended_ = waitpid(pid_, nullptr, WNOHANG) == pid_;
  return ended_;
}

}  // namespace quorvale
