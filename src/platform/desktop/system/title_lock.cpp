#include "platform/desktop/system/title_lock.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace quorvale {
namespace {

// A directory that somebody else owns or can write to would let him hold our shows back.
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

// FNV-1a: names files of any title and display, the same in every build.
std::uint64_t Hash(const std::string& text) {
  std::uint64_t hash = 0xcbf29ce484222325;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
  return hash;
}

// A lock of the open file, not of the process: two objects in one process exclude each other as well, and
// looking at it with F_OFD_GETLK never stands in the way of a run that claims it at that moment.
struct flock WholeFile(short type) {
  struct flock range {};
  range.l_type = type;
  range.l_whence = SEEK_SET;
  return range;
}

}  // namespace

TitleLock::TitleLock(std::string display_id) : display_id_(std::move(display_id)), directory_(FindDirectory()) {}

bool TitleLock::Claim(const std::string& title) {
  if (claims_.contains(title)) return true;
  if (directory_.empty()) return false;
  FileDescriptor file(open(PathOf(title).c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
  struct flock range = WholeFile(F_WRLCK);
  if (!file.IsOpen() || fcntl(file.Get(), F_OFD_SETLK, &range) != 0) return false;
  claims_.emplace(title, std::move(file));
  return true;
}

void TitleLock::Release(const std::string& title) {
  const auto claim = claims_.find(title);
  if (claim == claims_.end()) return;
  // Closing alone would not do while a child between fork and exec still shares the open file.
  struct flock range = WholeFile(F_UNLCK);
  fcntl(claim->second.Get(), F_OFD_SETLK, &range);
  claims_.erase(claim);
}

bool TitleLock::IsClaimed(const std::string& title) const {
  if (directory_.empty()) return false;
  const FileDescriptor file(open(PathOf(title).c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
  struct flock range = WholeFile(F_WRLCK);
  return file.IsOpen() && fcntl(file.Get(), F_OFD_GETLK, &range) == 0 && range.l_type != F_UNLCK;
}

std::string TitleLock::PathOf(const std::string& title) const {
  char name[64];
  std::snprintf(name, sizeof name, "quorvale-title-%016llx",
                static_cast<unsigned long long>(Hash(display_id_ + '\n' + title)));
  return directory_ + '/' + name;
}

}  // namespace quorvale
