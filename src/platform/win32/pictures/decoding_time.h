#pragma once

#include <chrono>
#include <functional>

namespace quorvale {

// How long the decoding of one picture may take. The show stands still meanwhile and sees no input. Keys are looked for
// here, not by `PicturePlace::while_waiting`: rows are also decoded while a window paints itself, and an event that is
// handled then could unload the form. The key stays in the queue, and ends the show once the load has failed.
class DecodingTime {
 public:
  // False when the time is over, and the picture should end with what there is. Fails with kBadPicture when a key waits
  // for the show, which will end it.
  bool IsLeft() const;

  // Runs `work` on a thread of its own, for calls that may take seconds. False when the time is over: the thread then
  // goes on alone, as it does after a failure, so `work` has to own what it uses, and must not throw. Fails as
  // `IsLeft`.
  bool Run(std::function<void()> work) const;

 private:
  static constexpr std::chrono::seconds kMost{5};
  // Before that nobody notices, and reading a key's state costs more than decoding some rows.
  static constexpr std::chrono::milliseconds kUnwatched{100};

  std::chrono::steady_clock::duration Elapsed() const { return std::chrono::steady_clock::now() - start_; }

  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace quorvale
