#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "toolkit/surface.h"

namespace quorvale {

// What shows a picture box: it copies what has changed of the toolkit's surface to the screen, at once or in the next
// pass of the event queue. What is out of sight stays dirty until it comes into sight.
class Presenter {
 public:
  // `surface` outlives it.
  explicit Presenter(Surface& surface) : surface_(surface) {}
  virtual ~Presenter() = default;
  Presenter(const Presenter&) = delete;
  Presenter& operator=(const Presenter&) = delete;

  // Whether it is on the screen, as far as the window system tells.
  virtual bool IsInSight() const = 0;

  void PresentSoon() {
    if (!std::exchange(present_is_posted_, true)) PostPresent();
  }
  void Present() {
    if (!IsInSight()) return;
    PrepareToShow();
    if (surface_.Dirty().IsEmpty()) return;
    ++presentations_;
    Show(surface_.Dirty().Take());
  }
  // How often something has been presented.
  std::uint64_t Presentations() const { return presentations_; }

  // For those that may outlive it. Hold what `lock` gives no longer than a question takes: it keeps nothing alive.
  std::weak_ptr<const Presenter> Watch() const { return self_; }

 protected:
  // What `PostPresent` has posted has arrived.
  void PresentPosted() {
    present_is_posted_ = false;
    Present();
  }
  Surface& Shown() const { return surface_; }

 private:
  virtual void PostPresent() = 0;
  // May find more that has to be shown.
  virtual void PrepareToShow() {}
  virtual void Show(const std::vector<PixelRect>& dirty) = 0;

  Surface& surface_;
  std::uint64_t presentations_ = 0;
  bool present_is_posted_ = false;
  std::shared_ptr<const Presenter> self_{this, [](const Presenter* /*self*/) {}};
};

}  // namespace quorvale
