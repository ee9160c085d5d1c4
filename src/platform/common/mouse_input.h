#pragma once

#include <cmath>
#include <utility>

#include "platform/common/deliver.h"
#include "toolkit/platform.h"

namespace quorvale {

// Reports what the mouse does at the windows of one form. Windows that come, go or change under a pointer at rest make
// window systems report moves that nobody made; those are left out.
class MouseInput {
 public:
  // On the screen, in whatever pixels the platform counts.
  struct Position {
    double x = 0;
    double y = 0;
    bool operator==(const Position&) const = default;
  };

  // `events` outlives it.
  explicit MouseInput(WindowEvents& events) : events_(events) {}

  // A disabled form takes no input.
  void SetEnabled(bool enabled) { is_enabled_ = enabled; }
  bool IsEnabled() const { return is_enabled_; }

  // Where the pointer is; the next move counts from there.
  void SetPointer(const Position& position) { pointer_ = position; }

  // At the form's own window, or at one that stands for it.
  void ReportDown() {
    if (is_enabled_) Deliver([this] { events_.OnMouseDown(); });
  }
  void ReportMove(const Position& position) {
    if (HasMoved(position) && is_enabled_) Deliver([this] { events_.OnMouseMove(); });
  }

  // At one of its picture boxes; `at` is in the toolkit's pixels from the box's corner.
  void ReportDown(SurfaceEvents& box, const Position& at) const {
    if (is_enabled_) Deliver([&] { box.OnMouseDown(Whole(at.x), Whole(at.y)); });
  }
  void ReportMove(SurfaceEvents& box, const Position& position, const Position& at) {
    if (!HasMoved(position) || !is_enabled_) return;
    Deliver([&] { box.OnMouseMove(Whole(at.x), Whole(at.y)); });
  }

 private:
  static int Whole(double coordinate) { return static_cast<int>(std::floor(coordinate)); }
  // Whether the pointer is elsewhere than it was.
  bool HasMoved(const Position& position) { return std::exchange(pointer_, position) != position; }

  WindowEvents& events_;
  Position pointer_;
  bool is_enabled_ = true;
};

}  // namespace quorvale
