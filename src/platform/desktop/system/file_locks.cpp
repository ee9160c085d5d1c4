#include "platform/desktop/system/file_locks.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <utility>

namespace quorvale {
namespace {

constexpr std::chrono::milliseconds kBetweenTries{5};

// In a directory that others own or can write to, they could block our shows.
bool IsOurs(const std::string& directory) {
  struct stat status {};
  return lstat(directory.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid() &&
         (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

std::string FindDirectory() {
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  if (runtime != nullptr && *runtime == '/' && IsOurs(runtime)) return runtime;
  std::string fallback = "/tmp/quorvale-" + std::to_string(geteuid());
  mkdir(fallback.c_str(), S_IRWXU);
  return IsOurs(fallback) ? fallback : std::string();
}

// FNV-1a: the file names must be the same in every build.
std::uint64_t Hash(const std::string& text) {
  std::uint64_t hash = 0xcbf29ce484222325;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
  return hash;
}

struct flock Range(short type, off_t start, off_t length) {
  struct flock range {};
  range.l_type = type;
  range.l_whence = SEEK_SET;
  range.l_start = start;
  range.l_len = length;
  return range;
}

}  // namespace

bool LockBytes(const FileDescriptor& file, short type, off_t start, off_t length) {
  struct flock range = Range(type, start, length);
  return fcntl(file.Get(), F_OFD_SETLK, &range) == 0;
}

bool AreLocked(const FileDescriptor& file, off_t start, off_t length) {
  struct flock range = Range(F_WRLCK, start, length);
  return fcntl(file.Get(), F_OFD_GETLK, &range) == 0 && range.l_type != F_UNLCK;
}

bool WaitForLock(const std::function<bool()>& lock, std::chrono::milliseconds patience) {
  const auto deadline = std::chrono::steady_clock::now() + patience;
  while (!lock()) {
    if (errno == EINTR) continue;
    if (errno == EACCES) errno = EWOULDBLOCK;
    if (errno != EWOULDBLOCK || std::chrono::steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(kBetweenTries);
  }
  return true;
}

std::optional<DirectoryLock> DirectoryLock::Take(const std::string& directory, Kind kind,
                                                 std::chrono::milliseconds patience) {
  FileDescriptor opened(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!opened.IsOpen()) return std::nullopt;
  const int operation = (kind == Kind::kShared ? LOCK_SH : LOCK_EX) | LOCK_NB;
  const bool is_locked = WaitForLock([&] { return flock(opened.Get(), operation) == 0; }, patience);
  if (!is_locked && (errno == EWOULDBLOCK || kind == Kind::kExclusive)) return std::nullopt;
  return DirectoryLock(std::move(opened));
}

TitleLock::TitleLock(std::string display_id) : display_id_(std::move(display_id)), directory_(FindDirectory()) {}

bool TitleLock::Claim(const std::string& title) {
  if (claims_.contains(title)) return true;
  if (directory_.empty()) return false;
  FileDescriptor file(open(PathOf(title).c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
  if (!file.IsOpen() || !LockBytes(file, F_WRLCK)) return false;
  claims_.emplace(title, std::move(file));
  return true;
}

void TitleLock::Release(const std::string& title) {
  const auto claim = claims_.find(title);
  if (claim == claims_.end()) return;
  // A child between fork and exec may still share the open file, so closing it is not enough.
  LockBytes(claim->second, F_UNLCK);
  claims_.erase(claim);
}

bool TitleLock::IsClaimed(const std::string& title) const {
  if (directory_.empty()) return false;
  const FileDescriptor file(open(PathOf(title).c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
  return file.IsOpen() && AreLocked(file);
}

std::string TitleLock::PathOf(const std::string& title) const {
  char name[64];
  std::snprintf(name, sizeof name, "quorvale-title-%016llx",
                static_cast<unsigned long long>(Hash(display_id_ + '\n' + title)));
  return directory_ + '/' + name;
}

}  // namespace quorvale
