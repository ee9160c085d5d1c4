#include "platform/desktop/toolkit/x11_session.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace quorvale {
namespace {

constexpr char kWindowManagerCheck[] = "_NET_SUPPORTING_WM_CHECK";

template <typename Reply>
std::unique_ptr<Reply, void (*)(void*)> Own(Reply* reply) {
  return {reply, std::free};
}

// The window that the property of that name names at `window`, or 0.
xcb_window_t WindowProperty(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t name) {
  const auto reply = Own(xcb_get_property_reply(
      connection, xcb_get_property(connection, 0, window, name, XCB_ATOM_WINDOW, 0, 1), nullptr));
  if (!reply || reply->format != 32 || reply->value_len != 1) return XCB_WINDOW_NONE;
  return *static_cast<const xcb_window_t*>(xcb_get_property_value(reply.get()));
}

}  // namespace

xcb_connection_t* X11Connection() {
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 != nullptr ? x11->connection() : nullptr;
}

bool HasWindowManager(xcb_connection_t* connection) {
  const auto atom = Own(xcb_intern_atom_reply(
      connection,
      xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(std::strlen(kWindowManagerCheck)), kWindowManagerCheck),
      nullptr));
  if (!atom) return false;
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
  // A window manager that was killed leaves the property on the root, but not the window that it names.
  const xcb_window_t owner = WindowProperty(connection, root, atom->atom);
  return owner != XCB_WINDOW_NONE && WindowProperty(connection, owner, atom->atom) == owner;
}

}  // namespace quorvale
