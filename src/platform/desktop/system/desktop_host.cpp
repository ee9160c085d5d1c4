#include "platform/desktop/system/desktop_host.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <utility>

namespace quorvale {

DesktopHost::DesktopHost(std::function<void()> before_exit, std::string shared_directory)
    : before_exit_(std::move(before_exit)), shared_seed_(std::move(shared_directory)) {
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  program_name_ = program.stem();
  directory_ = program.parent_path();
  if (directory_ == "/") directory_.clear();
}

std::string DesktopHost::GetSystemDirectory(std::uint32_t size) {
  return size == 0 ? std::string() : directory_.substr(0, size - 1);
}

double DesktopHost::SecondsSinceMidnight() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  tm local{};
  localtime_r(&now.tv_sec, &local);
  const int seconds = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
  return seconds + static_cast<double>(now.tv_nsec) / 1e9;
}

std::uint64_t DesktopHost::ClockSeed() {
  return static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
}

// Skips destructors and exit handlers, because event handlers are still on the stack and closing the sound device takes
// up to half a second. Settings are already in the database's log, and the display closes the windows. Only the
// standard streams must be flushed.
void DesktopHost::EndProcess() {
  try {
    before_exit_();
  } catch (...) {
    // The process ends anyway.
  }
  std::fflush(nullptr);
  std::_Exit(EXIT_SUCCESS);
}

}  // namespace quorvale
