#include "picture/develop.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "picture/canvas.h"
#include "picture/colour.h"
#include "picture/noise.h"
#include "picture/parallel.h"

namespace quorvale::samples {
namespace {

float ToSrgb(float linear) {
  return linear <= 0.0031308F ? 12.92F * linear : 1.055F * std::pow(linear, 1 / 2.4F) - 0.055F;
}

// Film curve and sRGB curve in one table over the square root of the light, which spends its entries on the
// shadows, where the eye counts steps.
class Curve {
 public:
  explicit Curve(float contrast) {
    for (std::size_t i = 0; i < table_.size(); ++i) {
      const float root = static_cast<float>(i) / kPerRoot;
      const float shown = ToSrgb(1 - std::exp(-root * root));
      table_[i] = 255 * Mix(shown, Smooth(0, 1, shown), contrast);
    }
  }

  float operator()(float light) const {
    const float place = std::min(std::sqrt(std::max(light, 0.0F)) * kPerRoot, static_cast<float>(kEntries - 2));
    const auto i = static_cast<std::size_t>(place);
    return Mix(table_[i], table_[i + 1], place - static_cast<float>(i));
  }

 private:
  static constexpr int kEntries = 4096;
  static constexpr float kPerRoot = 1200;
  std::array<float, kEntries> table_ = {};
};

std::uint8_t ToByte(float value) { return static_cast<std::uint8_t>(std::clamp(value + 0.5F, 0.0F, 255.0F)); }

}  // namespace

std::vector<std::uint8_t> Develop(const Canvas& canvas, const FilmSettings& film) {
  const Curve curve(film.contrast);
  const auto width = static_cast<float>(canvas.Width()), height = static_cast<float>(canvas.Height());
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(canvas.Width()) * static_cast<std::size_t>(canvas.Height()) *
                                  3);
  InParallel(canvas.Height(), [&](int begin, int end) {
    std::size_t next = static_cast<std::size_t>(begin) * static_cast<std::size_t>(canvas.Width()) * 3;
    for (int y = begin; y < end; ++y) {
      for (int x = 0; x < canvas.Width(); ++x) {
        const float from_centre_x = static_cast<float>(x) / width - 0.5F;
        const float from_centre_y = static_cast<float>(y) / height - 0.5F;
        const float corner = 2 * (from_centre_x * from_centre_x + from_centre_y * from_centre_y);
        const Colour light = canvas.At(x, y) * (film.exposure * (1 - film.vignette * corner));
        // The mean of two random numbers is a triangle, the dither that leaves no pattern.
        const float grain = film.grain * (HashUnit(x, y, 71) + HashUnit(x, y, 72) - 1) * 1.4F;
        for (const float channel : {light.r, light.g, light.b}) bytes[next++] = ToByte(curve(channel) + grain);
      }
    }
  });
  return bytes;
}

}  // namespace quorvale::samples
