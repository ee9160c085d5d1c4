#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace quorvale {

struct FreeReply {
  void operator()(void* reply) const { std::free(reply); }
};

// A reply of the X server, or an error; null where there was none.
template <typename Reply>
using Owned = std::unique_ptr<Reply, FreeReply>;

// The server's number for that name; XCB_ATOM_NONE when the server is gone.
xcb_atom_t Atom(xcb_connection_t* connection, std::string_view name);

// The window that the property `name` names at `window`, or XCB_WINDOW_NONE.
xcb_window_t WindowProperty(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t name);

}  // namespace quorvale
