#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "toolkit/surface.h"

namespace quorvale {

// Copies what has changed on a picture box's surface to the screen, at once or in the next pass of the event queue. Out
// of sight the surface stays dirty until it is seen again.
class Presenter {
 public:
  // `surface` outlives it.
  explicit Presenter(Surface& surface) : surface_(surface) {}
  virtual ~Presenter() = default;
  Presenter(const Presenter&) = delete;
  Presenter& operator=(const Presenter&) = delete;

  // Whether it is on the screen, as far as the window system reports it.
  virtual bool IsInSight() const = 0;

  void PresentSoon() {
    if (!std::exchange(present_is_posted_, true)) PostPresent();
  }
  void Present() {
    if (!IsInSight()) return;
    if (surface_.Dirty().IsEmpty()) return;
    ++presentations_;
    Show(surface_.Dirty().Take());
  }
  // The number of presentations so far.
  std::uint64_t Presentations() const { return presentations_; }

  // For objects that may outlive it. The result of `lock` does not keep the presenter alive, so use it at once.
  std::weak_ptr<const Presenter> Watch() const { return self_; }

 protected:
  // Call it when what `PostPresent` has posted arrives.
  void PresentPosted() {
    present_is_posted_ = false;
    Present();
  }
  Surface& Shown() const { return surface_; }

 private:
  virtual void PostPresent() = 0;
  virtual void Show(const std::vector<PixelRect>& dirty) = 0;

  Surface& surface_;
  std::uint64_t presentations_ = 0;
  bool present_is_posted_ = false;
  std::shared_ptr<const Presenter> self_{this, [](const Presenter* /*self*/) {}};
};

}  // namespace quorvale
