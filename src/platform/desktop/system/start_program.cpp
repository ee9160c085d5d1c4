#include "platform/desktop/system/start_program.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <system_error>
#include <thread>
#include <utility>

#include "base/failure.h"

namespace quorvale {
namespace {

// A new session, so that Ctrl+C in our terminal does not end the program, and no blocked signals.
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

class SpawnInput {
 public:
  explicit SpawnInput(int input) {
    posix_spawn_file_actions_init(&actions_);
    if (input >= 0) posix_spawn_file_actions_adddup2(&actions_, input, STDIN_FILENO);
  }
  ~SpawnInput() { posix_spawn_file_actions_destroy(&actions_); }
  SpawnInput(const SpawnInput&) = delete;
  SpawnInput& operator=(const SpawnInput&) = delete;

  const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

// An ended child stays a zombie until its parent waits for it. A thread does that, because a handler for SIGCHLD would
// interfere with libraries.
void WaitInBackground(pid_t child) {
  try {
    std::thread([child] {
      while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
      }
    }).detach();
  } catch (const std::system_error&) {
    // No thread: the zombie stays until this process ends.
  }
}

}  // namespace

std::vector<std::string> SplitCommandLine(std::string_view command_line) {
  std::vector<std::string> pieces;
  std::string piece;
  bool is_in_piece = false;
  bool is_quoted = false;
  for (const char c : command_line) {
    if (c == '"') {
      is_quoted = !is_quoted;
      is_in_piece = true;
    } else if (!is_quoted && (c == ' ' || c == '\t')) {
      if (std::exchange(is_in_piece, false)) pieces.push_back(std::exchange(piece, {}));
    } else {
      piece += c;
      is_in_piece = true;
    }
  }
  if (is_in_piece) pieces.push_back(std::move(piece));
  return pieces;
}

void StartProgram(const std::vector<std::string>& arguments, int input) {
  std::vector<std::string> pieces = arguments;
  std::vector<char*> pointers;
  pointers.reserve(pieces.size() + 1);
  for (std::string& piece : pieces) pointers.push_back(piece.data());
  pointers.push_back(nullptr);

  pid_t child = 0;
  const int error =
      posix_spawnp(&child, pointers[0], SpawnInput(input).Get(), SpawnAttributes().Get(), pointers.data(), environ);
  if (error != 0) {
    const bool is_missing = error == ENOENT || error == ENOTDIR || error == EACCES;
    throw Failure(is_missing ? FailureNumber::kNotFound : FailureNumber::kInternal,
                  pieces[0] + ": " + std::strerror(error), "DesktopPrograms");
  }
  WaitInBackground(child);
}

bool IsInstalled(const std::string& program) {
  const char* const path = std::getenv("PATH");
  std::istringstream directories(path == nullptr ? "" : path);
  for (std::string directory; std::getline(directories, directory, ':');) {
    directory += '/';
    directory += program;
    if (access(directory.c_str(), X_OK) == 0) return true;
  }
  return false;
}

}  // namespace quorvale
