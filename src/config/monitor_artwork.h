#pragma once

#include "toolkit/bitmap.h"

namespace quorvale {

// The monitor's picture and its black screen, in the toolkit's pixels.
inline constexpr int kMonitorWidth = 189;
inline constexpr int kMonitorHeight = 174;
inline constexpr int kMonitorScreenOffset = 18;  // from the left and from the top
inline constexpr int kMonitorScreenWidth = 153;
inline constexpr int kMonitorScreenHeight = 114;

// The monitor in the 16 usual colours, black outside its outline.
Bitmap MonitorBitmap(float scale);
// White outside the outline and black inside.
Bitmap MonitorMask(float scale);
// Both put together on the window's own background, which shows through outside the outline.
Bitmap MonitorOnBackground(float scale);

// A small monitor for the title bar, 32 by 32 pixels.
Bitmap ConfigIcon(float scale);

}  // namespace quorvale
