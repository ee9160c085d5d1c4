#pragma once

#include <cstdint>
#include <vector>

#include "picture/canvas.h"

namespace quorvale::samples {

// How light becomes a picture for the screen.
struct FilmSettings {
  float exposure = 1;    // what the light is multiplied by
  float contrast = 0.2;  // 0 (the plain film curve) to 1
  float grain = 1.2;     // in steps of 8-bit brightness
  float vignette = 0.2;  // the share of light that the corners lose
};

// Rows of red, green, blue bytes in sRGB. Highlights roll off as on film instead of being cut, and the grain
// keeps smooth skies from showing steps.
std::vector<std::uint8_t> Develop(const Canvas& canvas, const FilmSettings& film);

}  // namespace quorvale::samples
