#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "picture/canvas.h"

namespace quorvale::samples {

// Spreads what is brighter than `threshold` around it, as a lens does, over about `radius` pixels.
void AddGlow(Canvas& canvas, float threshold, float strength, int radius);

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

// Writes rows of red, green, blue bytes. Throws std::runtime_error if the file can't be opened;
// a failure while writing ends the program with a message.
void WriteJpeg(const std::string& path, int width, int height, const std::vector<std::uint8_t>& rgb, int quality);

}  // namespace quorvale::samples
