#pragma once

#include "toolkit/bitmap.h"

namespace quorvale {

// The program's drawings. They are rendered for each scale. Sizes are in toolkit pixels.

// A slide in the middle of a transition.
Artwork IconArtwork(float side);

// A vertical film strip with the stages of a transition.
Artwork FilmArtwork(float width, float height);

// The monitor's bitmap and its black screen, in toolkit pixels.
inline constexpr int kMonitorWidth = 189;
inline constexpr int kMonitorHeight = 174;
inline constexpr int kMonitorScreenOffset = 18;  // from the left and from the top
inline constexpr int kMonitorScreenWidth = 153;
inline constexpr int kMonitorScreenHeight = 114;

// The monitor in the 16 standard colours, black outside its outline.
Bitmap MonitorBitmap(float scale);
// White outside the outline and black inside.
Bitmap MonitorMask(float scale);
// Bitmap and mask combined: the monitor on the window's background.
Bitmap MonitorOnBackground(float scale);

// A small monitor for the title bar, 32 by 32 pixels.
Bitmap ConfigIcon(float scale);

}  // namespace quorvale
