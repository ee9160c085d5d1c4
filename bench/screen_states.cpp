#include "screen_states.h"

#include "measure.h"

namespace quorvale {

bool ShowsBackground(const XDisplay& display) { return display.Centre() == ToPixel(kShowBackground); }

void ClearScreen(XDisplay& display) {
  display.SetBackground(kBareScreen);
  WaitUntil("the bare screen", [&] { return display.Centre() == kBareScreen; });
}

void WaitForPicture(const XDisplay& display) {
  WaitUntil("a picture", [&] {
    const Pixel centre = display.Centre();
    return centre != kBareScreen && centre != ToPixel(kShowBackground) && centre != ToPixel(kBlack);
  });
}

}  // namespace quorvale
