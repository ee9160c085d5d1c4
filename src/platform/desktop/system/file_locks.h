#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "platform/desktop/system/files.h"

namespace quorvale {

// Locks on bytes of an open file; a `length` of 0 reaches to the end. They belong to the open file and not to the
// process: they also exclude two objects of one process.

// F_RDLCK, F_WRLCK or F_UNLCK. False at once, with the reason in errno, if another holds it or there are no such locks.
bool LockBytes(const FileDescriptor& file, short type, off_t start = 0, off_t length = 0);
// Whether another holds any lock there.
bool AreLocked(const FileDescriptor& file, off_t start = 0, off_t length = 0);

// Repeats `lock`, which gives its success as above, while another holds it. False after `patience` with the reason
// EWOULDBLOCK, or at once for any other reason.
bool WaitForLock(const std::function<bool()>& lock, std::chrono::milliseconds patience);

// A lock on a directory, against other processes and other objects of this one. A lock on a file in it would not do:
// closing a second descriptor of a file drops the locks that SQLite holds on that file.
class DirectoryLock {
 public:
  enum class Kind { kShared, kExclusive };

  // Waits at most `patience`; no value after that. On file systems without such locks, a shared lock always succeeds
  // and an exclusive one never.
  static std::optional<DirectoryLock> Take(const std::string& directory, Kind kind, std::chrono::milliseconds patience);

 private:
  explicit DirectoryLock(FileDescriptor directory) : directory_(std::move(directory)) {}

  FileDescriptor directory_;
};

// Finds window titles of the user's other processes on the same display where the window system can't be asked
// (Wayland). A claim is a lock on a small file in the user's run-time directory. It ends with the process and is not
// inherited. The file stays.
//
// Of two processes that claim a title at the same time exactly one succeeds. A process that must be alone therefore
// asks, claims, and gives up if the claim fails.
class TitleLock {
 public:
  // `display_id` distinguishes displays.
  explicit TitleLock(std::string display_id);

  // True if this object holds the title now or held it before. False if another holds it, or if there is no directory
  // for the file.
  bool Claim(const std::string& title);
  // Does nothing for a title that is not claimed.
  void Release(const std::string& title);
  // Whether any process, this one included, has claimed the title.
  bool IsClaimed(const std::string& title) const;

 private:
  std::string PathOf(const std::string& title) const;

  std::string display_id_;
  std::string directory_;  // empty if there is no safe one
  std::map<std::string, FileDescriptor> claims_;
};

}  // namespace quorvale
