#pragma once

#include <functional>
#include <string>

#include "toolkit/units.h"

namespace quorvale {

// The height of the tallest dialog in layout pixels, without and with its frame and menu bar.
inline constexpr double kTallestDialogInside = 440;
inline constexpr double kTallestDialog = 520;

// The scale of dialogs: device pixels per layout pixel. It is `wanted`, or less if the tallest dialog (`needed` layout
// pixels high) would not fit into `room` device pixels, but never too small to read.
double LayoutScale(double wanted, double room, double needed);

// The text if `fits` accepts it; otherwise as much of its start and end as fits, with an ellipsis between. If `fits`
// accepts a text, it must accept shorter ones too.
std::string WithoutMiddle(const std::string& text, const std::function<bool(const std::string&)>& fits);

class Widget;

// The caption's visible text, without the "&" of access keys.
std::string PlainCaption(const std::string& caption);

// The name of a control for screen readers: its caption, else the caption of the label before it in tab order, else of
// its frame, else its tool tip. A label that only shows a colour is named after the button before it, with the colour
// as "#RRGGBB".
std::string SpokenName(const Widget& control);

// The colour for a text on that background: `wanted` if it contrasts enough, else a lighter or a darker one.
Colour ReadableColour(Colour wanted, Colour background);

}  // namespace quorvale
