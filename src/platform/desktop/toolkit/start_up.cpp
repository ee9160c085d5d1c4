#include "platform/desktop/toolkit/start_up.h"

#include <xcb/xcb.h>

#include <QByteArray>
#include <cstdlib>

namespace quorvale {

DisplayProbe::DisplayProbe() {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  const bool may_be_x11 =
      platform.startsWith("xcb") || (platform.isEmpty() && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"));
  if (!may_be_x11) return;
  connection_.reset(xcb_connect(nullptr, nullptr));
  has_display_ = xcb_connection_has_error(connection_.get()) == 0;
}

void DisplayProbe::Disconnect::operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }

void PreferX11() {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !qEnvironmentVariableIsEmpty("DISPLAY")) {
    qputenv("QT_QPA_PLATFORM", "xcb");
  }
}

double TurnScalingOff() {
  const double factor = qgetenv("QT_SCALE_FACTOR").toDouble();
  qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
  qunsetenv("QT_SCALE_FACTOR");
  qunsetenv("QT_SCREEN_SCALE_FACTORS");
  return factor > 0 ? factor : 1;
}

}  // namespace quorvale
