#include "platform/desktop/toolkit/start_up.h"

#include <xcb/xcb.h>

#include <QByteArray>
#include <cstdlib>

namespace quorvale {

bool HasDisplay() {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  if (!platform.isEmpty() && !platform.startsWith("xcb")) return true;
  if (platform.isEmpty() && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) return true;
  xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
  const bool is_there = xcb_connection_has_error(connection) == 0;
  xcb_disconnect(connection);
  return is_there;
}

double TurnScalingOff() {
  const double factor = qgetenv("QT_SCALE_FACTOR").toDouble();
  qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
  qunsetenv("QT_SCALE_FACTOR");
  qunsetenv("QT_SCREEN_SCALE_FACTORS");
  return factor > 0 ? factor : 1;
}

}  // namespace quorvale
