#pragma once

#include "system/window_system.h"

struct xcb_connection_t;

namespace quorvale {

// Qt's connection to the X server, or null on another window system.
xcb_connection_t* X11Connection();

bool HasWindowManager(xcb_connection_t* connection);

// A screen saver daemon starts one program per monitor and gives each a window of its own there. Some give the little
// window in their preferences the same way.
enum class DaemonPlace {
  kNone,          // there is no such window
  kPrimary,       // it covers all of the primary monitor
  kOtherMonitor,  // it covers all of another one
  kPreview,       // it covers none
};
DaemonPlace PlaceOfDaemonWindow(WindowHandle daemon_window);

// Keeps the daemon's window black until it is gone or a signal asks the process to end. Returns the exit code.
int KeepBlack(WindowHandle daemon_window);

}  // namespace quorvale
