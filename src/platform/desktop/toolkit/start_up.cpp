#include "platform/desktop/toolkit/start_up.h"

#include <xcb/xcb.h>

#include <QByteArray>
#include <QString>
#include <cstdio>
#include <cstdlib>

namespace quorvale {
namespace {

const char* program_name = nullptr;
QtMessageHandler usual_handler = nullptr;

void HandleMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (type == QtFatalMsg && text.contains("platform plugin")) EndWithoutDisplay(program_name);
  usual_handler(type, context, text);
}

}  // namespace

DisplayProbe::DisplayProbe() {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  const bool may_be_x11 =
      platform.startsWith("xcb") || (platform.isEmpty() && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"));
  if (!may_be_x11) return;
  connection_.reset(xcb_connect(nullptr, nullptr));
  has_display_ = xcb_connection_has_error(connection_.get()) == 0;
}

void DisplayProbe::Disconnect::operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }

void EndWithoutDisplay(const char* program) {
  std::fprintf(stderr, "%s: there is no display to show anything on\n", program);
  if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
    std::fprintf(stderr, "%s: on Wayland it takes the package qt6-wayland\n", program);
  }
  std::_Exit(EXIT_FAILURE);
}

void EndWithoutPlatform(const char* program) {
  program_name = program;
  usual_handler = qInstallMessageHandler(HandleMessage);
}

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
