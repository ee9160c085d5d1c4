#include "picture/glow.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "picture/canvas.h"
#include "picture/colour.h"
#include "picture/parallel.h"

namespace quorvale::samples {
namespace {

constexpr int kShrink = 8;

// What the lens scatters, an eighth as wide and high.
Canvas BrightParts(const Canvas& canvas, float threshold) {
  Canvas small(canvas.Width() / kShrink, canvas.Height() / kShrink);
  small.Fill(0, small.Height(), [&](int x, int y) {
    Colour sum;
    for (int j = 0; j < kShrink; ++j) {
      for (int i = 0; i < kShrink; ++i) {
        const Colour light = canvas.At(x * kShrink + i, y * kShrink + j);
        const float brightest = std::max({light.r, light.g, light.b, 1e-6F});
        sum += light * (std::max(0.0F, brightest - threshold) / brightest);
      }
    }
    return sum * (1.0F / (kShrink * kShrink));
  });
  return small;
}

// A running mean over 2 * radius + 1 pixels, along a line of `count` pixels which `at` reaches.
template <typename At>
void MeanAlong(int count, int radius, At at) {
  std::vector<Colour> line(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) line[static_cast<std::size_t>(i)] = at(i);
  const auto held = [&](int i) { return line[static_cast<std::size_t>(std::clamp(i, 0, count - 1))]; };
  Colour sum;
  for (int i = -radius; i <= radius; ++i) sum += held(i);
  for (int i = 0; i < count; ++i) {
    at(i) = sum * (1.0F / static_cast<float>(2 * radius + 1));
    sum += held(i + radius + 1) - held(i - radius);
  }
}

}  // namespace

void AddGlow(Canvas& canvas, float threshold, float strength, int radius) {
  Canvas small = BrightParts(canvas, threshold);
  const int reach = std::max(1, radius / kShrink / 2);
  // Three running means come close to the bell curve of a real blur.
  for (int pass = 0; pass < 3; ++pass) {
    for (int y = 0; y < small.Height(); ++y)
      MeanAlong(small.Width(), reach, [&](int x) -> Colour& { return small.At(x, y); });
    for (int x = 0; x < small.Width(); ++x)
      MeanAlong(small.Height(), reach, [&](int y) -> Colour& { return small.At(x, y); });
  }
  InParallel(canvas.Height(), [&](int begin, int end) {
    for (int y = begin; y < end; ++y)
      for (int x = 0; x < canvas.Width(); ++x)
        canvas.At(x, y) +=
            strength * small.Sample((static_cast<float>(x) + 0.5F) / kShrink, (static_cast<float>(y) + 0.5F) / kShrink);
  });
}

}  // namespace quorvale::samples
