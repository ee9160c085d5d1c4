#pragma once

#include "platform/win32/windows_api.h"

namespace quorvale {

// Told to a dialog's windows without controls when it has come to a monitor of another resolution.
inline constexpr UINT kScaleChanged = WM_APP + 1;

// A window of the system's with a procedure of ours. The system, or a parent in another program, can
// destroy it at any time.
class NativeWindow {
 public:
  virtual ~NativeWindow();
  NativeWindow(const NativeWindow&) = delete;
  NativeWindow& operator=(const NativeWindow&) = delete;

  // The object behind that window, or null.
  static NativeWindow* Of(HWND window);

  // Carries a key out that means something to the window as a whole; false for every other message.
  virtual bool TranslateKey(MSG& /*message*/) { return false; }

  // Null once the window has been destroyed.
  HWND Window() const { return window_; }

 protected:
  // Starts hidden and without a size. Fails with kInternal.
  NativeWindow(DWORD style, DWORD extended_style, HWND parent);

  // What arrives at the window. What a window leaves alone goes to the system by `Default`.
  virtual LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) = 0;
  LRESULT Default(UINT message, WPARAM first, LPARAM second) const;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
  static const wchar_t* ClassName();

  HWND window_;
};

}  // namespace quorvale
