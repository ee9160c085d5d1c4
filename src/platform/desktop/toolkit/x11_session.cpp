#include "platform/desktop/toolkit/x11_session.h"

#include <xcb/xcb.h>

#include <QGuiApplication>

#include "platform/desktop/system/x11_requests.h"

namespace quorvale {

xcb_connection_t* X11Connection() {
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 != nullptr ? x11->connection() : nullptr;
}

bool HasWindowManager(xcb_connection_t* connection) {
  const xcb_atom_t check = Atom(connection, "_NET_SUPPORTING_WM_CHECK");
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
  // A window manager that was killed leaves the property on the root, but not the window that it names.
  const xcb_window_t owner = WindowProperty(connection, root, check);
  return owner != XCB_WINDOW_NONE && WindowProperty(connection, owner, check) == owner;
}

}  // namespace quorvale
