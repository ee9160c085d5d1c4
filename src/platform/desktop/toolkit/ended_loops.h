#pragma once

#include <utility>

namespace quorvale {

// The nested event loops that are to end and can't: an effect that began in one of them is still running on the stack
// above it.
class EndedLoops {
 public:
  bool Any() const { return count_ > 0; }

  // One loop, from before its beginning until it has returned.
  class Loop {
   public:
    explicit Loop(EndedLoops& loops) : loops_(loops) {}
    ~Loop() {
      if (has_ended_) --loops_.count_;
    }
    Loop(const Loop&) = delete;
    Loop& operator=(const Loop&) = delete;

    void End() {
      if (!std::exchange(has_ended_, true)) ++loops_.count_;
    }

   private:
    EndedLoops& loops_;
    bool has_ended_ = false;
  };

 private:
  int count_ = 0;
};

}  // namespace quorvale
