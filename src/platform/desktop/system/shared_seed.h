#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/desktop/system/files.h"

namespace quorvale {

// A seed that processes have in common while at least one of them runs. It is in a small file, on which each of them
// holds a lock; so one that is killed is gone, too. What starts the processes does not matter: there may be a shell or
// a sandbox in between, and the daemon may live on for weeks while its shows come and go.
class SharedSeed {
 public:
  // The settings' directory, since those that share the position in a list have it in common. Empty for a process that
  // shares nothing.
  explicit SharedSeed(std::string directory);

  // The seed of those that have joined, or `own` if there are none. This object counts among them as long as it lives.
  // No value if the file can't be used.
  std::optional<std::uint64_t> Join(std::uint64_t own);

 private:
  std::string path_;  // empty if there is none
  FileDescriptor file_;
};

}  // namespace quorvale
