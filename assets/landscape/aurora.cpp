#include "landscape/aurora.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "picture/canvas.h"
#include "picture/develop.h"
#include "picture/noise.h"
#include "picture/view.h"

namespace quorvale::samples {
namespace {

// A curtain of light hangs from the edge of space along a winding line over the ground. It is drawn by walking that
// line in small steps of equal length, each adding the light of its strip to the column that it is seen in. Where
// the line runs towards us, strips pile up: that makes the bright folds.
struct Curtain {
  float distance;  // kilometres from us to the line's middle
  float slant;     // kilometres that its right end is further away
  float folds;     // how strongly it winds, kilometres
  float strength;
  std::uint32_t seed;
};

constexpr std::array<Curtain, 3> kCurtains = {
    {{330, 420, 130, 1.0F, 305}, {560, -420, 170, 1.1F, 302}, {820, 150, 190, 1.2F, 307}}};
constexpr int kSteps = 50000;
constexpr float kHalfLength = 900;  // kilometres
constexpr float kThickness = 20;    // kilometres
constexpr float kLowest = 100;      // altitude of the lower edge, kilometres

// Oxygen gives green below and a dim red high up, nitrogen a purple hem.
Colour Emission(float altitude) {
  if (altitude <= 0) return {};
  const float hem = 1 - std::exp(-altitude / 5);
  const Colour green = Colour{0.10F, 1.0F, 0.36F} * std::exp(-altitude / 34);
  const Colour red = Colour{0.42F, 0.10F, 0.46F} * (0.30F * std::exp(-altitude / 85) * Smooth(5, 70, altitude));
  const Colour purple = Colour{0.55F, 0.12F, 0.50F} * (0.35F * std::exp(-altitude / 9));
  return (green + red + purple) * hem;
}

// The same for every kilometre above the lower edge, looked up by the million.
class EmissionTable {
 public:
  EmissionTable() {
    for (std::size_t i = 0; i < table_.size(); ++i) table_[i] = Emission(static_cast<float>(i) / kPerKilometre);
  }
  Colour operator()(float altitude) const {
    const float place = altitude * kPerKilometre;
    return place >= 0 && place < kEntries ? table_[static_cast<std::size_t>(place)] : Colour{};
  }

 private:
  static constexpr int kEntries = 2400;
  static constexpr float kPerKilometre = 5;
  std::array<Colour, kEntries> table_ = {};
};

}  // namespace

Canvas RenderAurora(const View& view, int width, int height) {
  Canvas sky(width / kAuroraShrinkX, height / kAuroraShrinkY);
  const EmissionTable emission;
  for (const Curtain& curtain : kCurtains) {
    for (int i = 0; i < kSteps; ++i) {
      const float s = (static_cast<float>(i) / kSteps * 2 - 1) * kHalfLength / 100;
      const float x = s * 100 +
                      curtain.folds * (Noise(s * 0.6F, 0, curtain.seed) + 0.5F * Noise(s * 1.9F, 7, curtain.seed)) +
                      kThickness * (HashUnit(i, 1, curtain.seed) - 0.5F);
      const float z =
          curtain.distance + curtain.slant * s / 9 +
          curtain.folds * (0.9F * Noise(s * 0.45F, 3, curtain.seed) + 0.35F * Noise(s * 1.6F, 5, curtain.seed)) +
          kThickness * (HashUnit(i, 2, curtain.seed) - 0.5F);
      if (z < 120) continue;
      const float column = view.Column(x, z) / kAuroraShrinkX - 0.5F;
      const int left = static_cast<int>(std::floor(column));
      if (left < 0 || left + 1 >= sky.Width()) continue;
      const float share = column - static_cast<float>(left);

      const float brightness = 0.12F + Smooth(-0.35F, 0.45F, Fractal(s * 0.5F, 9, 3, curtain.seed));
      const float rays = 0.40F + 1.2F * Smooth(-0.35F, 0.7F, Fractal(s * 9, 11, 4, curtain.seed));
      const float reach = 0.8F + 1.0F * Smooth(-0.4F, 0.6F, Fractal(s * 5, 13, 3, curtain.seed));
      const float lowest = kLowest + 12 * Fractal(s * 1.6F, 17, 3, curtain.seed);
      const float light = curtain.strength * brightness * rays * 0.026F;
      for (int row = 0; row < sky.Height(); ++row) {
        const float elevation = (view.horizon_row - (static_cast<float>(row) + 0.5F) * kAuroraShrinkY) / view.focal;
        const Colour strip = emission((elevation * z - lowest) / reach) * light;
        sky.At(left, row) += strip * (1 - share);
        sky.At(left + 1, row) += strip * share;
      }
    }
  }
  AddGlow(sky, 0, 0.35F, 160);
  return sky;
}

}  // namespace quorvale::samples
