#pragma once

#include "platform/win32/windows_api.h"

namespace quorvale {

inline bool IsMouseDown(UINT message) {
  return message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN ||
         message == WM_XBUTTONDOWN;
}

// Alt, and keys pressed together with it, have a message of their own.
inline bool IsKeyDown(UINT message) { return message == WM_KEYDOWN || message == WM_SYSKEYDOWN; }

}  // namespace quorvale
