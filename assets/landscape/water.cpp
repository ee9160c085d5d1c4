#include "landscape/water.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "picture/canvas.h"
#include "picture/noise.h"
#include "picture/view.h"

namespace quorvale::samples {
namespace {

// A surface tilted towards us mirrors what is higher up. Far off, many ripples share a pixel and smear the reflection
// into columns. These are the places along a column, from -1 to 1.
constexpr std::array<float, 6> kSmear = {-1.0F, -0.6F, -0.2F, 0.2F, 0.6F, 1.0F};

}  // namespace

void DrawWater(Canvas& canvas, const View& view, int shore_row, const WaterLook& look) {
  canvas.Fill(shore_row, canvas.Height(), [&](int column, int row) {
    const float below = static_cast<float>(row) + 0.5F - view.horizon_row;
    const float distance = view.eye_height * view.focal / std::max(below, 0.5F);
    const float x = (static_cast<float>(column) - view.centre_column) / view.focal * distance;
    const float u = x / look.ripple_length, v = distance / look.ripple_length;
    // Near the shore a pixel is longer than a ripple, and only the mean is seen.
    const float ripples_per_pixel = distance * distance / (view.focal * view.eye_height) / look.ripple_length;
    const float resolved = 1 / (1 + 2 * ripples_per_pixel);
    // Breaths of wind roughen some stretches more than others.
    const float wind = 0.35F + Smooth(-0.3F, 0.5F, Fractal(u * 0.012F, v * 0.05F, 3, 901));
    const float slope = look.ripple_slope * wind;
    const float tilt_z = slope * resolved * Fractal(u * 0.55F, v, 4, 911) * 2;
    const float tilt_x = slope * resolved * Fractal(u * 0.7F, v, 3, 921) * 0.8F;
    const float smear = slope * (1 - resolved * 0.8F) * view.focal * 0.5F;

    const float mirrored = view.horizon_row - below - 2 * std::abs(tilt_z) * view.focal;
    const float shifted = static_cast<float>(column) + 0.5F + 2 * tilt_x * view.focal;
    Colour seen;
    const float jitter = HashUnit(column, row, 931) * 0.4F - 0.2F;
    for (const float tap : kSmear) {
      const float up = mirrored - (tap + jitter + 0.6F) * smear;
      seen += canvas.Sample(shifted, std::min(up, static_cast<float>(shore_row) - 0.5F));
    }
    seen *= 1.0F / static_cast<float>(kSmear.size());

    // The flatter the view, the more water mirrors.
    const float grazing = 1 - Clamp01(below / view.focal + tilt_z * 2);
    const float mirror = 0.15F + 0.82F * std::pow(grazing, 3.0F);
    return seen * mirror + look.depth * (1 - mirror);
  });
}

}  // namespace quorvale::samples
