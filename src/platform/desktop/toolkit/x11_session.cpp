#include "platform/desktop/toolkit/x11_session.h"

#include <xcb/xcb.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>

#include "platform/desktop/system/x11_windows.h"
#include "platform/desktop/toolkit/event_loop.h"

namespace quorvale {

xcb_connection_t* X11Connection() {
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 != nullptr ? x11->connection() : nullptr;
}

bool HasWindowManager(xcb_connection_t* connection) {
  const xcb_atom_t check = Atom(connection, "_NET_SUPPORTING_WM_CHECK");
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
  // A killed window manager leaves the property on the root, but the window that it names is gone.
  const xcb_window_t owner = WindowProperty(connection, root, check);
  return owner != XCB_WINDOW_NONE && WindowProperty(connection, owner, check) == owner;
}

DaemonPlace PlaceOfDaemonWindow(WindowHandle daemon_window) {
  xcb_connection_t* const x11 = X11Connection();
  const QScreen* const primary = QGuiApplication::primaryScreen();
  const auto window = static_cast<std::uint32_t>(daemon_window);
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  if (x11 == nullptr || primary == nullptr || !ReadWindowPlace(x11, window, x, y) ||
      !ReadWindowSize(x11, window, width, height)) {
    return DaemonPlace::kNone;
  }
  const QRect place(x, y, width, height);
  if (place.contains(primary->geometry())) return DaemonPlace::kPrimary;
  const auto monitors = QGuiApplication::screens();
  const bool is_on_monitor = std::any_of(monitors.begin(), monitors.end(),
                                         [&](const QScreen* monitor) { return place.contains(monitor->geometry()); });
  return is_on_monitor ? DaemonPlace::kOtherMonitor : DaemonPlace::kPreview;
}

int KeepBlack(WindowHandle daemon_window) {
  xcb_connection_t* const x11 = X11Connection();
  const auto window = static_cast<std::uint32_t>(daemon_window);
  if (x11 == nullptr || !WindowExists(x11, window)) return EXIT_SUCCESS;
  const EndingSignals signals([] { QCoreApplication::quit(); });
  PaintBlack(x11, window);
  // A daemon that is killed sends no signal.
  QTimer check;
  QObject::connect(&check, &QTimer::timeout, &check, [x11, window] {
    if (!WindowExists(x11, window)) QCoreApplication::quit();
  });
  check.start(std::chrono::seconds(1));
  return QCoreApplication::exec();
}

}  // namespace quorvale
