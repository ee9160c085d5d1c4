#include "platform/common/black_windows.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quorvale {

std::vector<PixelRect> FurtherMonitorsOf(const std::vector<PixelRect>& monitors) {
  std::vector<PixelRect> distinct;
  for (const PixelRect& monitor : monitors) {
    const bool is_mirror = std::ranges::any_of(
        distinct, [&](const PixelRect& other) { return monitor.left == other.left && monitor.top == other.top; });
    if (!is_mirror) distinct.push_back(monitor);
  }
  if (!distinct.empty()) distinct.erase(distinct.begin());
  return distinct;
}

BlackWindows::BlackWindows(Monitors monitors, Make make) : monitors_(std::move(monitors)), make_(std::move(make)) {
  CoverMonitors();
}

// A window whose monitor has gone is kept, since it may be delivering an event further up.
void BlackWindows::CoverMonitors() {
  if (is_hidden_) return;
  const std::vector<PixelRect> monitors = FurtherMonitorsOf(monitors_());
  while (windows_.size() < monitors.size()) windows_.push_back(make_());
  for (std::size_t i = 0; i < monitors.size(); ++i) windows_[i]->Cover(monitors[i]);
  for (std::size_t i = monitors.size(); i < windows_.size(); ++i) windows_[i]->Hide();
}

void BlackWindows::Hide() {
  is_hidden_ = true;
  for (const auto& window : windows_) window->Hide();
}

}  // namespace quorvale
