#include "platform/win32/widgets/dialog_theme.h"

#include <cmath>

#include "toolkit/panels.h"

namespace quorvale {
namespace {

constexpr float kPointsPerInch = 72;

bool Holds(const TwipRect& outer, const TwipRect& inner) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.left + inner.width <= outer.left + outer.width &&
         inner.top + inner.height <= outer.top + outer.height;
}

}  // namespace

HFONT DialogFonts::Get(float points, bool bold) {
  GdiFont& font = fonts_[{points, bold}];
  if (!font) {
    LOGFONTW description = usual_;
    description.lfHeight =
        -static_cast<LONG>(std::lround((points > 0 ? points : kDefaultPoints) * kUsualDpi / kPointsPerInch * scale_));
    description.lfWidth = 0;
    if (bold) description.lfWeight = FW_BOLD;
    font.reset(CreateFontIndirectW(&description));
  }
  return font.get();
}

void PageBackground::SetStrip(const TabStrip& strip, HWND window) {
  strip_ = &strip;
  window_ = window;
}

bool PageBackground::IsBehind(const Widget& control) const {
  const Widget* outermost = &control;
  while (outermost->Design().container != nullptr) outermost = outermost->Design().container;
  return strip_ != nullptr && outermost != strip_ && Holds(strip_->Place(), outermost->Place());
}

HBRUSH PageBackground::Brush(HDC context) {
  if (!brush_) {
    colour_ = ReadColour();
    brush_.reset(CreateSolidBrush(colour_));
  }
  SetBkColor(context, colour_);
  SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
  return brush_.get();
}

// No call returns the colour under every theme, so the strip draws itself and one pixel is read.
COLORREF PageBackground::ReadColour() const {
  RECT place{};
  GetClientRect(window_, &place);
  const PixelBitmap drawn(place.right, place.bottom);
  const MemoryContext context;
  context.Select(drawn.Get());
  FillRect(context.Get(), &place, GetSysColorBrush(COLOR_BTNFACE));
  SendMessageW(window_, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(context.Get()), PRF_CLIENT);
  const COLORREF colour = GetPixel(context.Get(), place.right / 2, place.bottom / 2);
  return colour != CLR_INVALID ? colour : GetSysColor(COLOR_BTNFACE);
}

}  // namespace quorvale
