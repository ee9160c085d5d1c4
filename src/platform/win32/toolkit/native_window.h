#pragma once

#include "platform/win32/windows_api.h"

namespace quorvale {

// Sent to the picture boxes of a dialog when its scale has changed.
inline constexpr UINT kScaleChanged = WM_APP + 1;

// Of a window that covers a monitor beside the primary one, above all others, and leaves the focus where it is.
inline constexpr DWORD kMonitorExtendedStyle = WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;

// A window with a window procedure of ours. The system, or a parent window in another program, can destroy it at any
// time.
class NativeWindow {
 public:
  virtual ~NativeWindow();
  NativeWindow(const NativeWindow&) = delete;
  NativeWindow& operator=(const NativeWindow&) = delete;

  // The object of this window, or null.
  static NativeWindow* Of(HWND window);

  // Handles keys of the window as a whole, before its child windows get them. Returns true if it handled the message.
  virtual bool TranslateKey(MSG& /*message*/) { return false; }

  // Null after the window has been destroyed.
  HWND Window() const { return window_; }

 protected:
  // The window is hidden and empty at first. Fails with kInternal.
  NativeWindow(DWORD style, DWORD extended_style, HWND parent);

  // A message for the window. `Default` passes it to the system.
  virtual LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) = 0;
  LRESULT Default(UINT message, WPARAM first, LPARAM second) const;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
  static const wchar_t* ClassName();

  HWND window_;
};

}  // namespace quorvale
