#pragma once

#include <functional>
#include <string>

namespace quorvale {

// What the tallest dialog needs, in pixels of the layout: inside its frame and menu bar, and with them.
inline constexpr double kTallestDialogInside = 440;
inline constexpr double kTallestDialog = 520;

// Device pixels to a pixel of a dialog's layout. Dialogs grow as a whole by `wanted` as far as the tallest one, which
// is `needed` pixels high, has room in `room` device pixels; where it has none, all shrink, but stay readable.
double LayoutScale(double wanted, double room, double needed);

// The text, or, where `fits` denies that one, as much of its two ends as fits around an ellipsis. Of two such texts
// the shorter one must fit where the longer one does.
std::string WithoutMiddle(const std::string& text, const std::function<bool(const std::string&)>& fits);

}  // namespace quorvale
