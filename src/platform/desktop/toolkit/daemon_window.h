#pragma once

#include "system/window_system.h"

namespace quorvale {

// A daemon starts a program for each monitor and names a window of its own there. Whether this one holds all
// of the primary monitor, where the show is; false when there is no such window.
bool HoldsPrimaryMonitor(WindowHandle daemon_window);

// Keeps the window black until it goes or the process is asked to end. Gives the process's exit code.
int KeepBlack(WindowHandle daemon_window);

}  // namespace quorvale
