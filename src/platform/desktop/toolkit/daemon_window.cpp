#include "platform/desktop/toolkit/daemon_window.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QTimer>
#include <chrono>
#include <cstdint>
#include <cstdlib>

#include "platform/desktop/system/x11_windows.h"
#include "platform/desktop/toolkit/ending_signals.h"
#include "platform/desktop/toolkit/x11_session.h"

namespace quorvale {

bool HoldsPrimaryMonitor(WindowHandle daemon_window) {
  xcb_connection_t* const x11 = X11Connection();
  const QScreen* const primary = QGuiApplication::primaryScreen();
  if (x11 == nullptr || primary == nullptr) return false;
  const auto window = static_cast<std::uint32_t>(daemon_window);
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  return ReadWindowPlace(x11, window, x, y) && ReadWindowSize(x11, window, width, height) &&
         QRect(x, y, width, height).contains(primary->geometry());
}

int KeepBlack(WindowHandle daemon_window) {
  xcb_connection_t* const x11 = X11Connection();
  const auto window = static_cast<std::uint32_t>(daemon_window);
  if (x11 == nullptr || !WindowExists(x11, window)) return EXIT_SUCCESS;
  const EndingSignals signals([] { QCoreApplication::quit(); });
  PaintBlack(x11, window);
  // The daemon may be killed before it has said that we are to end.
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, &look, [x11, window] {
    if (!WindowExists(x11, window)) QCoreApplication::quit();
  });
  look.start(std::chrono::seconds(1));
  return QCoreApplication::exec();
}

}  // namespace quorvale
