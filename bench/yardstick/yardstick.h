#pragma once

#include <string>

#include "yardstick/shared_window.h"

namespace quorvale {

enum class Fit {
  kStretched,  // over the whole screen
  kInside,     // in the picture's own proportions
};

// The least a program must do to show a JPEG picture: decode it at the nearest scale that the library can,
// average what is still too much, and put it on the screen, once.
void ShowByYardstick(const std::string& path, Fit fit, SharedWindow& window);

}  // namespace quorvale
