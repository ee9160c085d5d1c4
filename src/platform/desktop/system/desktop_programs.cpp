#include "platform/desktop/system/desktop_programs.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>

#include <cerrno>
#include <cstring>
#include <system_error>
#include <thread>
#include <vector>

#include "base/failure.h"
#include "platform/desktop/system/command_line.h"

namespace quorvale {
namespace {

// A session of its own, so that a key in our terminal does not end it, and no signal of ours blocked.
class SpawnAttributes {
 public:
  SpawnAttributes() {
    posix_spawnattr_init(&attributes_);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes_, &none);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK);
  }
  ~SpawnAttributes() { posix_spawnattr_destroy(&attributes_); }
  SpawnAttributes(const SpawnAttributes&) = delete;
  SpawnAttributes& operator=(const SpawnAttributes&) = delete;

  const posix_spawnattr_t* Get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_{};
};

// A child that nobody waits for stays behind as a zombie when it ends. A thread that waits for this one
// leaves the process's handling of signals and other children alone, which libraries rely on.
void WaitInBackground(pid_t child) {
  try {
    std::thread([child] {
      while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
      }
    }).detach();
  } catch (const std::system_error&) {
    // Without a thread to spare the zombie stays until we end.
  }
}

}  // namespace

void DesktopPrograms::Start(const std::string& command_line, int /*window_style*/) {
  std::vector<std::string> pieces = SplitCommandLine(command_line);
  if (pieces.empty()) throw Failure(FailureNumber::kNotFound, "No program to start", "DesktopPrograms");
  std::vector<char*> arguments;
  arguments.reserve(pieces.size() + 1);
  for (std::string& piece : pieces) arguments.push_back(piece.data());
  arguments.push_back(nullptr);

  pid_t child = 0;
  const int error = posix_spawnp(&child, arguments[0], nullptr, SpawnAttributes().Get(), arguments.data(), environ);
  if (error != 0) {
    const bool is_missing = error == ENOENT || error == ENOTDIR || error == EACCES;
    throw Failure(is_missing ? FailureNumber::kNotFound : FailureNumber::kInternal,
                  pieces[0] + ": " + std::strerror(error), "DesktopPrograms");
  }
  WaitInBackground(child);
}

void DesktopPrograms::OpenDisplaySettings() {
  try {
    Start("xscreensaver-settings", kWindowNormalFocus);
  } catch (const Failure&) {
    // Other desktops have settings of their own, and none that is the same on all of them.
  }
}

}  // namespace quorvale
