#include "platform/desktop/system/shared_seed.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>
#include <utility>

namespace quorvale {
namespace {

// The locks are on two bytes behind the seed. Locks of the open file also work between two objects of one process.
constexpr off_t kTurnByte = 100;    // held while a process joins, so that only one can be the first
constexpr off_t kMemberByte = 101;  // shared by all that have joined

// Joining takes microseconds, but a daemon may stop a process in the midst of it.
constexpr std::chrono::milliseconds kTurnPatience{500};
constexpr std::chrono::milliseconds kBetweenTurns{1};

struct flock ByteLock(off_t byte, short type) {
  struct flock range {};
  range.l_type = type;
  range.l_whence = SEEK_SET;
  range.l_start = byte;
  range.l_len = 1;
  return range;
}

bool SetLock(int file, off_t byte, short type) {
  struct flock range = ByteLock(byte, type);
  return fcntl(file, F_OFD_SETLK, &range) == 0;
}

bool WaitForTurn(int file) {
  const auto deadline = std::chrono::steady_clock::now() + kTurnPatience;
  while (!SetLock(file, kTurnByte, F_WRLCK)) {
    const bool may_come = errno == EAGAIN || errno == EACCES || errno == EINTR;
    if (!may_come || std::chrono::steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(kBetweenTurns);
  }
  return true;
}

bool HasMembers(int file) {
  struct flock range = ByteLock(kMemberByte, F_WRLCK);
  return fcntl(file, F_OFD_GETLK, &range) == 0 && range.l_type != F_UNLCK;
}

}  // namespace

SharedSeed::SharedSeed(std::string directory) : path_(directory.empty() ? "" : std::move(directory) + "/show.seed") {}

std::optional<std::uint64_t> SharedSeed::Join(std::uint64_t own) {
  if (path_.empty()) return std::nullopt;
  FileDescriptor file(open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, S_IRUSR | S_IWUSR));
  if (!file.IsOpen() || !WaitForTurn(file.Get())) return std::nullopt;
  std::uint64_t seed = own;
  const ssize_t moved =
      HasMembers(file.Get()) ? pread(file.Get(), &seed, sizeof seed, 0) : pwrite(file.Get(), &seed, sizeof seed, 0);
  const bool has_joined = moved == sizeof seed && SetLock(file.Get(), kMemberByte, F_RDLCK);
  SetLock(file.Get(), kTurnByte, F_UNLCK);
  if (!has_joined) return std::nullopt;
  file_ = std::move(file);
  return seed;
}

}  // namespace quorvale
