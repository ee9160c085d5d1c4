#include "platform/desktop/system/directory_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <thread>
#include <utility>

namespace quorvale {
namespace {

constexpr std::chrono::milliseconds kBetweenTries{5};

}  // namespace

std::optional<DirectoryLock> DirectoryLock::Take(const std::string& directory, Kind kind,
                                                 std::chrono::milliseconds patience) {
  FileDescriptor opened(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!opened.IsOpen()) return std::nullopt;
  const int operation = (kind == Kind::kShared ? LOCK_SH : LOCK_EX) | LOCK_NB;
  const auto deadline = std::chrono::steady_clock::now() + patience;
  while (flock(opened.Get(), operation) != 0) {
    if (errno == EINTR) continue;
    if (errno != EWOULDBLOCK) {
      if (kind == Kind::kShared) break;
      return std::nullopt;
    }
    if (std::chrono::steady_clock::now() >= deadline) return std::nullopt;
    std::this_thread::sleep_for(kBetweenTries);
  }
  return DirectoryLock(std::move(opened));
}

}  // namespace quorvale
