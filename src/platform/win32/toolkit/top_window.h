#pragma once

#include <windowsx.h>

#include <memory>
#include <string>
#include <utility>

#include "platform/common/black_windows.h"
#include "platform/common/mouse_input.h"
#include "platform/win32/system/system_text.h"
#include "platform/win32/toolkit/gdi.h"
#include "platform/win32/toolkit/native_window.h"
#include "platform/win32/toolkit/resolution.h"
#include "toolkit/platform.h"

namespace quorvale {

inline bool IsMouseDown(UINT message) {
  return message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN ||
         message == WM_XBUTTONDOWN;
}

// Alt, and keys that are pressed with it, send WM_SYSKEYDOWN.
inline bool IsKeyDown(UINT message) { return message == WM_KEYDOWN || message == WM_SYSKEYDOWN; }

// The pointer's position at the message that is being handled.
inline MouseInput::Position MessagePosition() {
  const DWORD position = GetMessagePos();
  return {static_cast<double>(GET_X_LPARAM(position)), static_cast<double>(GET_Y_LPARAM(position))};
}

// A form's window. While a show's window is on the screen, all monitors but the primary one are black, or windows of
// the kind `kMonitor` cover them.
class TopWindow : public NativeWindow {
 public:
  TopWindow(WindowKind kind, PixelKind pixels, WindowEvents& events);

  // Device pixels per toolkit pixel.
  float Scale() const { return scale_; }

  // In toolkit pixels, from the corner of the primary monitor. The size of a dialog is that of its client area.
  void SetBounds(const PixelRect& bounds);
  // The icon in the title bar.
  void SetIcon(const Artwork& artwork);
  virtual void Appear();
  virtual void Hide();

  // The first picture box of a form gets the focus.
  virtual void OfferFocus(HWND child);

  // Input at the form's picture boxes and black windows.
  void ReportKey(int key) { events_.OnKeyDown(key); }
  MouseInput& Mouse() { return mouse_; }

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
  WindowEvents& Events() const { return events_; }
  void SetDpi(int dpi, HMONITOR monitor) { scale_ = ToolkitScale(pixels_, dpi, monitor); }
  // Sets size and position by `SetBounds`, or with its top left corner elsewhere.
  void Place() const;
  void PlaceAt(POINT corner) const;

 private:
  void Erase(HDC context) const;
  bool HoldsScreen() const;
  void CheckScreenSoon() const;
  // `is_repeated` if the timer asks, some time after another check.
  void CheckScreen(bool is_repeated);
  // Handles the messages that only a show's window handles. Returns true if no more is to be done.
  bool OnShowMessage(UINT message, WPARAM first);

  WindowKind kind_;
  PixelKind pixels_;
  WindowEvents& events_;
  MouseInput mouse_{events_};
  PixelRect bounds_;
  float scale_;
  HWND focus_ = nullptr;
  Icon icon_;
  // Whether the form has shown the window.
  bool is_shown_ = false;
  // The window has held the screen since it appeared, or since its last loss was reported.
  bool had_screen_ = false;
  // The form is handling `OnDeactivated`.
  bool is_reporting_loss_ = false;
  std::unique_ptr<BlackWindows> black_windows_;
};

class Win32WindowPeer : public WindowPeer {
 public:
  explicit Win32WindowPeer(std::unique_ptr<TopWindow> window) : window_(std::move(window)) {}

  WindowHandle Handle() const override { return reinterpret_cast<WindowHandle>(window_->Window()); }
  void SetCaption(const std::string& caption) override { SetWindowTextW(window_->Window(), ToWide(caption).c_str()); }
  void SetBounds(const PixelRect& bounds) override { window_->SetBounds(bounds); }
  void SetVisible(bool visible) override {
    if (visible && IsWindowVisible(window_->Window()) != 0) return;
    if (visible) {
      window_->Appear();
    } else {
      window_->Hide();
    }
  }
  void SetIcon(const Artwork& icon) override { window_->SetIcon(icon); }

  TopWindow& Window() { return *window_; }

 private:
  std::unique_ptr<TopWindow> window_;
};

}  // namespace quorvale
