#include "process_figures.h"

#include <ctime>
#include <filesystem>
#include <fstream>

#include "base/failure.h"

namespace quorvale {
namespace {

[[noreturn]] void FailGone() { throw Failure(FailureNumber::kNotFound, "The measured process is gone", "bench"); }

// The number behind `name` in one of the kernel's status files.
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
