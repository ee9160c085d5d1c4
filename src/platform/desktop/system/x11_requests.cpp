#include "platform/desktop/system/x11_requests.h"

#include <cstdint>

namespace quorvale {

xcb_atom_t Atom(xcb_connection_t* connection, std::string_view name) {
  const xcb_intern_atom_cookie_t cookie =
      xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
  const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

xcb_window_t WindowProperty(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t name) {
  const xcb_get_property_cookie_t cookie = xcb_get_property(connection, 0, window, name, XCB_ATOM_WINDOW, 0, 1);
  const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection, cookie, nullptr));
  if (!reply || reply->format != 32 || reply->value_len == 0) return XCB_WINDOW_NONE;
  return *static_cast<const xcb_window_t*>(xcb_get_property_value(reply.get()));
}

}  // namespace quorvale
