#pragma once

#include "platform/win32/toolkit/gdi.h"
#include "toolkit/widget.h"

namespace quorvale {

class TabStrip;

// What lies under the controls on the pages of a tab strip: the system's theme may give pages a colour of their own.
class PageBackground {
 public:
  // Both outlive it.
  void SetStrip(const TabStrip& strip, HWND window);
  // The strip looks or is placed otherwise.
  void Forget() { brush_.reset(); }

  // Whether the control lies on a page, or on a frame that does.
  bool IsUnder(const Widget& control) const;
  // For a control on a page: sets the colours of its text as well.
  HBRUSH Brush(HDC context);

 private:
  COLORREF ReadColour() const;

  const TabStrip* strip_ = nullptr;
  HWND window_ = nullptr;
  COLORREF colour_ = 0;
  GdiObject<HBRUSH> brush_;
};

}  // namespace quorvale
