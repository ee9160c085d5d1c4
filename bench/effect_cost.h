#pragma once

#include <chrono>
#include <string>

#include "groups.h"
#include "live_show.h"

namespace quorvale {

// Passes of an effect that take as long as they take.
inline constexpr PassLengths kNoLengths{std::chrono::nanoseconds(0), std::chrono::nanoseconds(0)};

struct EffectCost {
  int calls = 0;  // of drawing
  double seconds = 0;
  double cpu_seconds = 0;
  double server_seconds = 0;  // CPU time of the X server
};

// Puts a picture on the screen and wipes it away, until the X server has the last step.
EffectCost RunEffect(Bench& bench, LiveShow& show, const std::string& effect, int speed);

// As in "1920x1080".
std::string ScreenName(const Bench& bench);

}  // namespace quorvale
