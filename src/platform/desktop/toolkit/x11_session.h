#pragma once

struct xcb_connection_t;

namespace quorvale {

// Qt's connection to the X server; null on any other window system.
xcb_connection_t* X11Connection();

bool HasWindowManager(xcb_connection_t* connection);

}  // namespace quorvale
