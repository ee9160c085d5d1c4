#include "platform/win32/toolkit/pixel_scale.h"

#include "toolkit/fitting.h"

namespace quorvale {

float ToolkitScale(PixelKind kind, int dpi, HMONITOR monitor) {
  if (kind == PixelKind::kPhysical) return 1;
  const RECT work_area = WorkAreaOf(monitor);
  const SIZE frame = WindowSize({}, kDialogStyle, kDialogExtendedStyle, true, dpi);
  return static_cast<float>(LayoutScale(static_cast<double>(dpi) / kUsualDpi,
                                        work_area.bottom - work_area.top - frame.cy, kTallestDialogInside));
}

RECT WorkAreaOf(HMONITOR monitor) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  GetMonitorInfoW(monitor, &info);
  return info.rcWork;
}

HMONITOR PrimaryMonitor() { return MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY); }

}  // namespace quorvale
