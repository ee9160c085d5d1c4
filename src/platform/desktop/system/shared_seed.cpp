#include "platform/desktop/system/shared_seed.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <utility>

#include "platform/desktop/system/file_locks.h"

namespace quorvale {
namespace {

// The locks are on two bytes behind the seed.
constexpr off_t kTurnByte = 100;    // held while a process joins, so that only one can be the first
constexpr off_t kMemberByte = 101;  // shared by all that have joined

// Joining takes microseconds, but a daemon may stop a process in the midst of it.
constexpr std::chrono::milliseconds kTurnPatience{500};

}  // namespace

SharedSeed::SharedSeed(std::string directory) : path_(directory.empty() ? "" : std::move(directory) + "/show.seed") {}

std::optional<std::uint64_t> SharedSeed::Join(std::uint64_t own) {
  if (path_.empty()) return std::nullopt;
  FileDescriptor file(open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, S_IRUSR | S_IWUSR));
  const auto take_turn = [&] { return LockBytes(file, F_WRLCK, kTurnByte, 1); };
  if (!file.IsOpen() || !WaitForLock(take_turn, kTurnPatience)) return std::nullopt;
  std::uint64_t seed = own;
  const bool has_members = AreLocked(file, kMemberByte, 1);
  const ssize_t moved =
      has_members ? pread(file.Get(), &seed, sizeof seed, 0) : pwrite(file.Get(), &seed, sizeof seed, 0);
  const bool has_joined = moved == sizeof seed && LockBytes(file, F_RDLCK, kMemberByte, 1);
  LockBytes(file, F_UNLCK, kTurnByte, 1);
  if (!has_joined) return std::nullopt;
  file_ = std::move(file);
  return seed;
}

}  // namespace quorvale
