#pragma once

#include <map>
#include <utility>

#include "platform/win32/toolkit/gdi.h"
#include "platform/win32/toolkit/resolution.h"
#include "toolkit/control.h"

namespace quorvale {

class TabStrip;

// The size of a dialog's text, where a control has none of its own.
inline constexpr float kDefaultPoints = 8.25F;

// The fonts of a dialog's controls at one scale, device pixels per layout pixel, in the typeface of the user's choice.
class DialogFonts {
 public:
  explicit DialogFonts(float scale) : scale_(scale), usual_(ReadUserFonts(kUsualDpi).dialogs) {}

  // 0 points is `kDefaultPoints`. The font lives as long as this object.
  HFONT Get(float points, bool bold);

 private:
  float scale_;
  LOGFONTW usual_;
  std::map<std::pair<float, bool>, GdiFont> fonts_;
};

// The background behind controls on a tab strip, whose pages may have a colour of their own under the system's theme.
class PageBackground {
 public:
  // Both outlive this object.
  void SetStrip(const TabStrip& strip, HWND window);
  // The theme or the size of the strip has changed.
  void Reset() { brush_.reset(); }

  // Whether the control, or the frame that contains it, lies on the strip.
  bool IsBehind(const Widget& control) const;
  // The brush for a control on the strip. Also sets the text colours of `context`.
  HBRUSH Brush(HDC context);

 private:
  COLORREF ReadColour() const;

  const TabStrip* strip_ = nullptr;
  HWND window_ = nullptr;
  COLORREF colour_ = 0;
  GdiObject<HBRUSH> brush_;
};

}  // namespace quorvale
