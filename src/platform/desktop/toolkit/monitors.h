#pragma once

#include <QRect>
#include <vector>

#include "platform/desktop/toolkit/pixels.h"
#include "system/window_system.h"
#include "toolkit/units.h"

class QScreen;

namespace quorvale {

// A window of a screen saver daemon in which a show runs.
struct DaemonWindow {
  // 0 if there is none.
  WindowHandle handle = 0;
  // It does not hold the primary monitor. The show fills the window then, wherever it is.
  bool is_beside_primary = false;
};

// The primary monitor, or the daemon's window that stands for it. Empty while there is none.
QRect ShownMonitor(const DaemonWindow& daemon);

// The places of all monitors in Qt's pixels, the primary one first.
std::vector<PixelRect> AllMonitors();

// The places of the monitors beside the primary one in the toolkit's pixels, from the corner of the primary one.
std::vector<PixelRect> FurtherMonitors(PixelKind pixels);

// The monitor at one of these places, or null.
QScreen* MonitorAt(const PixelRect& place, PixelKind pixels);

}  // namespace quorvale
