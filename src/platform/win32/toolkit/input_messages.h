#pragma once

#include <windowsx.h>

#include "platform/common/mouse_input.h"
#include "platform/win32/windows_api.h"

namespace quorvale {

inline bool IsMouseDown(UINT message) {
  return message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN ||
         message == WM_XBUTTONDOWN;
}

// Where the pointer was at the message that is being handled.
inline MouseInput::Position MessagePosition() {
  const DWORD position = GetMessagePos();
  return {static_cast<double>(GET_X_LPARAM(position)), static_cast<double>(GET_Y_LPARAM(position))};
}

// Alt, and keys pressed together with it, have a message of their own.
inline bool IsKeyDown(UINT message) { return message == WM_KEYDOWN || message == WM_SYSKEYDOWN; }

}  // namespace quorvale
