#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "toolkit/units.h"

namespace quorvale {

// The places of the monitors that a show has beside the primary one, which is first of `monitors`. Mirrors are left
// out: a monitor with the corner of another one shows what that one does.
std::vector<PixelRect> FurtherMonitorsOf(const std::vector<PixelRect>& monitors);

// The window that keeps one monitor black. It hands input on to the show's window.
class BlackWindow {
 public:
  virtual ~BlackWindow() = default;
  // Comes on the screen there. `monitor` is in the platform's own coordinates of monitors.
  virtual void Cover(const PixelRect& monitor) = 0;
  virtual void Hide() = 0;
};

// Black windows on all monitors but the primary one while a show runs.
class BlackWindows {
 public:
  // The places of all monitors, the primary one first; none while there is no screen.
  using Monitors = std::function<std::vector<PixelRect>()>;
  using Make = std::function<std::unique_ptr<BlackWindow>()>;

  BlackWindows(Monitors monitors, Make make);

  // Covers the monitors that there are now. Call it when they change.
  void CoverMonitors();
  // Takes them off the screen for good. They are not destroyed yet, since one of them may be delivering the event that
  // ends the show.
  void Hide();

 private:
  Monitors monitors_;
  Make make_;
  bool is_hidden_ = false;
  std::vector<std::unique_ptr<BlackWindow>> windows_;
};

}  // namespace quorvale
