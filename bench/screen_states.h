#pragma once

#include "toolkit/pixel_view.h"
#include "yardstick/x_display.h"

namespace quorvale {

// The background of every show of the bench, and the colour of the bare screen meanwhile: by them it sees how
// far a program has come. No test picture has them in its middle.
inline constexpr Colour kShowBackground = 0x402010;
inline constexpr Pixel kBareScreen = 0xFF010203;

// Whether the show's window covers the screen, without a picture.
bool ShowsBackground(const XDisplay& display);

// Gives the bare screen its colour, and waits until no window covers it any more.
void ClearScreen(XDisplay& display);

// Waits until a program has put a picture on the screen.
void WaitForPicture(const XDisplay& display);

}  // namespace quorvale
