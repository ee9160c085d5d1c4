#include "platform/desktop/toolkit/monitors.h"

#include <QGuiApplication>
#include <QScreen>
#include <cmath>
#include <cstdint>

#include "platform/common/black_windows.h"
#include "platform/desktop/system/x11_windows.h"
#include "platform/desktop/toolkit/x11_session.h"

namespace quorvale {
namespace {

PixelRect ToRect(const QRect& rect) { return {rect.x(), rect.y(), rect.width(), rect.height()}; }

// Each monitor may have a ratio of its own. It gives the size its device pixels; the corner only has to be distinct.
PixelRect PlaceOf(const QScreen& monitor, PixelKind pixels) {
  const double ratio = ToolkitPixelRatio(pixels, monitor.devicePixelRatio());
  const auto scaled = [ratio](int length) { return static_cast<int>(std::lround(length * ratio)); };
  const QPoint corner = monitor.geometry().topLeft() - QGuiApplication::primaryScreen()->geometry().topLeft();
  return {scaled(corner.x()), scaled(corner.y()), scaled(monitor.geometry().width()),
          scaled(monitor.geometry().height())};
}

}  // namespace

QRect ShownMonitor(const DaemonWindow& daemon) {
  if (daemon.is_beside_primary) {
    const auto window = static_cast<std::uint32_t>(daemon.handle);
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    ReadWindowPlace(X11Connection(), window, x, y);
    ReadWindowSize(X11Connection(), window, width, height);
    return {x, y, width, height};
  }
  const QScreen* const primary = QGuiApplication::primaryScreen();
  return primary != nullptr ? primary->geometry() : QRect();
}

std::vector<PixelRect> AllMonitors() {
  std::vector<PixelRect> monitors;
  for (const QScreen* const monitor : QGuiApplication::screens()) monitors.push_back(ToRect(monitor->geometry()));
  return monitors;
}

std::vector<PixelRect> FurtherMonitors(PixelKind pixels) {
  std::vector<PixelRect> places;
  for (const QScreen* const monitor : QGuiApplication::screens()) places.push_back(PlaceOf(*monitor, pixels));
  return FurtherMonitorsOf(places);
}

QScreen* MonitorAt(const PixelRect& place, PixelKind pixels) {
  for (QScreen* const monitor : QGuiApplication::screens()) {
    if (PlaceOf(*monitor, pixels) == place) return monitor;
  }
  return nullptr;
}

}  // namespace quorvale
