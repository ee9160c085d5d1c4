#include "platform/common/black_windows.h"

#include <cstddef>
#include <utility>

namespace quorvale {
namespace {

// A monitor that mirrors the primary one has its corner, and shows the show.
std::vector<PixelRect> AllButPrimary(const std::vector<PixelRect>& monitors) {
  std::vector<PixelRect> others;
  for (const PixelRect& monitor : monitors) {
    if (monitor.left != monitors.front().left || monitor.top != monitors.front().top) others.push_back(monitor);
  }
  return others;
}

}  // namespace

BlackWindows::BlackWindows(Monitors monitors, Make make) : monitors_(std::move(monitors)), make_(std::move(make)) {
  CoverMonitors();
}

// A window whose monitor has gone is kept, since it may be delivering an event further up.
void BlackWindows::CoverMonitors() {
  if (is_hidden_) return;
  const std::vector<PixelRect> monitors = AllButPrimary(monitors_());
  while (windows_.size() < monitors.size()) windows_.push_back(make_());
  for (std::size_t i = 0; i < monitors.size(); ++i) windows_[i]->Cover(monitors[i]);
  for (std::size_t i = monitors.size(); i < windows_.size(); ++i) windows_[i]->Hide();
}

void BlackWindows::Hide() {
  is_hidden_ = true;
  for (const auto& window : windows_) window->Hide();
}

}  // namespace quorvale
