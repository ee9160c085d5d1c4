#pragma once

#include <map>
#include <string>

#include "platform/desktop/system/file_descriptor.h"

namespace quorvale {

// Tells the other runs of this user on this display which window titles are up, where no window system
// can be asked. A claim is a lock on a small file in the user's run-time directory: it ends with the process,
// however that ends, and programs that the process starts do not inherit it. The file stays.
//
// Asking and then claiming leaves a moment for a second run to do the same. Of two runs that claim at once
// exactly one is told true, so a run that must be alone asks, claims, and gives way when told false.
class TitleLock {
 public:
  // The display's name keeps shows on different displays apart.
  explicit TitleLock(std::string display_id);

  // True when the title is now this object's, or was already. False when another holds it, or when the
  // directory can't be written; then nobody learns of the claim.
  bool Claim(const std::string& title);
  // Gives the title back; nothing happens to one that was not claimed.
  void Release(const std::string& title);
  // Whether any process, this one included, has claimed the title.
  bool IsClaimed(const std::string& title) const;

 private:
  std::string PathOf(const std::string& title) const;

  std::string display_id_;
  std::string directory_;  // empty: there is none to be trusted
  std::map<std::string, FileDescriptor> claims_;
};

}  // namespace quorvale
