#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "platform/desktop/system/file_descriptor.h"

namespace quorvale {

// A lock on a directory, against other processes and other objects of this one. It lies on the directory
// itself: opening and closing a locked file anew would drop the locks that a library holds on that file.
class DirectoryLock {
 public:
  enum class Kind { kShared, kExclusive };

  // Waits at most `patience`. Where the file system knows no such locks, a shared one is given all the
  // same and an exclusive one never.
  static std::optional<DirectoryLock> Take(const std::string& directory, Kind kind, std::chrono::milliseconds patience);

 private:
  explicit DirectoryLock(FileDescriptor directory) : directory_(std::move(directory)) {}

  FileDescriptor directory_;
};

}  // namespace quorvale
