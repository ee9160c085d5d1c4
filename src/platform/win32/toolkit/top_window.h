#pragma once

#include <memory>

#include "platform/common/black_windows.h"
#include "platform/common/mouse_input.h"
#include "platform/win32/toolkit/icon.h"
#include "platform/win32/toolkit/native_window.h"
#include "platform/win32/toolkit/pixel_scale.h"
#include "toolkit/platform.h"

namespace quorvale {

// A form's window. While that of a show is on the screen every monitor but the primary one is black.
class TopWindow : public NativeWindow {
 public:
  TopWindow(WindowKind kind, PixelKind pixels, WindowEvents& events);

  // Device pixels to the toolkit's pixel.
  float Scale() const { return scale_; }

  // In the toolkit's pixels, from the corner of the primary monitor. A dialog's size is that of its
  // client area.
  void SetBounds(const PixelRect& bounds);
  // The small picture in the title bar.
  void SetIcon(const Artwork& artwork);
  virtual void Appear();
  virtual void Hide();

  // The first picture box of a form has the focus.
  virtual void OfferFocus(HWND child);

  // For its picture boxes, and for windows that stand for this one.
  void ReportKey(int key) { events_.OnKeyDown(key); }
  MouseInput& Mouse() { return mouse_; }

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
  WindowEvents& Events() const { return events_; }
  void SetDpi(int dpi, HMONITOR monitor) { scale_ = ToolkitScale(pixels_, dpi, monitor); }
  // Where `SetBounds` wants it, and at another corner.
  void Place() const;
  void PlaceAt(POINT corner) const;

 private:
  void Erase(HDC context) const;
  bool HoldsScreen() const;
  void LookAtScreenSoon() const;
  // `again` is the look that follows another after a while.
  void LookAtScreen(bool again);
  // Those messages that only a show's window answers; false for all others.
  bool TakeShowMessage(UINT message, WPARAM first);

  WindowKind kind_;
  PixelKind pixels_;
  WindowEvents& events_;
  MouseInput mouse_{events_};
  PixelRect bounds_;
  float scale_;
  HWND focus_ = nullptr;
  Icon icon_;
  // Whether the form wants it on the screen.
  bool is_shown_ = false;
  // Whether it has had the screen since it came up, or since the form was last told of its loss.
  bool had_screen_ = false;
  // The form is being told of a loss.
  bool is_telling_ = false;
  std::unique_ptr<BlackWindows> black_windows_;
};

}  // namespace quorvale
