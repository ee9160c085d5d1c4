#include "platform/win32/widgets/page_background.h"

#include "toolkit/panels.h"

namespace quorvale {
namespace {

bool Holds(const TwipRect& outer, const TwipRect& inner) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.left + inner.width <= outer.left + outer.width &&
         inner.top + inner.height <= outer.top + outer.height;
}

}  // namespace

void PageBackground::SetStrip(const TabStrip& strip, HWND window) {
  strip_ = &strip;
  window_ = window;
}

bool PageBackground::IsUnder(const Widget& control) const {
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

// The strip is asked to draw itself; nothing else tells its colour under every theme.
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
