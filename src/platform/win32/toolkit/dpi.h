#pragma once

#include "platform/win32/windows_api.h"

namespace quorvale {

// Dots per inch. The calls that tell a monitor's own came late, so they are looked for at run time; a
// system without them has one resolution for everything.

inline constexpr int kUsualDpi = 96;

int DpiOf(HWND window);
int SystemDpi();

// The size of a whole window around a client area of that size.
SIZE WindowSize(SIZE client, DWORD style, DWORD extended_style, bool has_menu, int dpi);

// Makes this thread's windows count the pixels of that window, of whatever program. A child has to count
// its parent's.
void FollowDpiOf(HWND host);

}  // namespace quorvale
