#include "platform/desktop/system/desktop_host.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <utility>

namespace quorvale {

DesktopHost::DesktopHost(std::function<void()> before_exit) : before_exit_(std::move(before_exit)) {
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

// Without destructors and exit handlers: they would run below the handlers that are still on the stack, and
// closing the sound device would hold the user up. Settings are in the file's log from each write on, the
// windows go with the connection to the display. Only the standard streams are still to be written out.
void DesktopHost::EndProcess() {
  try {
    before_exit_();
  } catch (...) {
    // It ends all the same.
  }
  std::fflush(nullptr);
  std::_Exit(EXIT_SUCCESS);
}

}  // namespace quorvale
