#pragma once

#include <chrono>

namespace quorvale {

// One playing of a metafile's records on a device context that was handed to it.
class Playing {
 public:
  // Whether the two seconds are over that a picture may take, however many records it has. What was drawn by then
  // stays.
  bool IsOver() const { return std::chrono::steady_clock::now() - start_ > kTime; }

  void StateSaved() { ++saved_; }

  // How far back, as a negative number, a restoring record may go that names a state from the last one back, or from
  // 1 for the first. 0 where it names none that this metafile has saved: the one before is the caller's.
  int RestoreState(int which) {
    const int index = which < 0 ? saved_ + which : which - 1;
    if (index < 0 || index >= saved_) return 0;
    const int back = index - saved_;
    saved_ = index;
    return back;
  }

 private:
  static constexpr std::chrono::milliseconds kTime{2000};

  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  int saved_ = 0;
};

}  // namespace quorvale
