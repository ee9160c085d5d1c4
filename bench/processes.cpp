#include "processes.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <ctime>
#include <filesystem>
#include <fstream>

#include "base/failure.h"

namespace quorvale {
namespace {

[[noreturn]] void FailGone() { throw Failure(FailureNumber::kNotFound, "The measured process is gone", "bench"); }

// The number that follows `name` in a status file of the kernel.
long StatusNumber(const std::filesystem::path& file, const std::string& name) {
  std::ifstream status(file);
  std::string word;
  while (status >> word) {
    long number = 0;
    if (word == name && status >> number) return number;
  }
  FailGone();
}

std::filesystem::path ProcessDirectory(pid_t process) {
  return std::filesystem::path("/proc") / std::to_string(process);
}

}  // namespace

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

double CpuSeconds(pid_t process) {
  clockid_t clock = 0;
  timespec time{};
  if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &time) != 0) FailGone();
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

double PeakMegabytes(pid_t process) {
  return static_cast<double>(StatusNumber(ProcessDirectory(process) / "status", "VmHWM:")) / 1024;
}

long WakeUps(pid_t process) {
  long count = 0;
  for (const auto& task : std::filesystem::directory_iterator(ProcessDirectory(process) / "task")) {
    count += StatusNumber(task.path() / "status", "voluntary_ctxt_switches:");
  }
  return count;
}

}  // namespace quorvale
