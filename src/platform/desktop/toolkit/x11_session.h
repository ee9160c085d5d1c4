#pragma once

#include "system/window_system.h"

struct xcb_connection_t;

namespace quorvale {

// Qt's connection to the X server, or null on another window system.
xcb_connection_t* X11Connection();

bool HasWindowManager(xcb_connection_t* connection);

// A screen saver daemon starts one program per monitor and gives each a window of its own there. Whether this one
// covers all of the primary monitor, where the show runs. False if there is no such window.
bool HoldsPrimaryMonitor(WindowHandle daemon_window);

// Keeps the daemon's window black until it is gone or a signal asks the process to end. Returns the exit code.
int KeepBlack(WindowHandle daemon_window);

}  // namespace quorvale
