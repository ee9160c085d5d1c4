#include "picture/noise.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

namespace quorvale::samples {
namespace {

struct Slope {
  float x, y;
};

constexpr float kDiagonal = 0.70710678F;
constexpr std::array<Slope, 8> kSlopes = {{{1, 0},
                                           {kDiagonal, kDiagonal},
                                           {0, 1},
                                           {-kDiagonal, kDiagonal},
                                           {-1, 0},
                                           {-kDiagonal, -kDiagonal},
                                           {0, -1},
                                           {kDiagonal, -kDiagonal}}};

// The plane through a lattice point, of that point's random slope, at (dx, dy) from it.
float Plane(int x, int y, float dx, float dy, std::uint32_t seed) {
  const Slope slope = kSlopes[Hash(x, y, seed) >> 29U];
  return slope.x * dx + slope.y * dy;
}

// std::floor is a call to the library where the processor's own instruction may not be assumed.
int Floor(float x) {
  const int cut = static_cast<int>(x);
  return cut - static_cast<int>(x < static_cast<float>(cut));
}

float Fade(float t) { return t * t * t * (t * (t * 6 - 15) + 10); }

// Between octaves the lattice is turned by an angle of no symmetry, so that its rows never add up.
constexpr float kTurnCos = 0.8F, kTurnSin = 0.6F;

void Refine(float& x, float& y) {
  const float turned = (kTurnCos * x - kTurnSin * y) * 2.03F;
  y = (kTurnSin * x + kTurnCos * y) * 2.03F;
  x = turned;
}

}  // namespace

float Noise(float x, float y, std::uint32_t seed) {
  const int cell_x = Floor(x), cell_y = Floor(y);
  const auto floor_x = static_cast<float>(cell_x), floor_y = static_cast<float>(cell_y);
  const float u = x - floor_x, v = y - floor_y;
  const float a = Plane(cell_x, cell_y, u, v, seed), b = Plane(cell_x + 1, cell_y, u - 1, v, seed);
  const float c = Plane(cell_x, cell_y + 1, u, v - 1, seed), d = Plane(cell_x + 1, cell_y + 1, u - 1, v - 1, seed);
  const float fade_u = Fade(u), upper = a + (b - a) * fade_u, lower = c + (d - c) * fade_u;
  return 1.4F * (upper + (lower - upper) * Fade(v));
}

float Fractal(float x, float y, int octaves, std::uint32_t seed) {
  float sum = 0, weight = 0.5F;
  for (int i = 0; i < octaves; ++i, weight *= 0.5F) {
    sum += weight * Noise(x, y, seed + static_cast<std::uint32_t>(i));
    Refine(x, y);
  }
  return sum;
}

float Ridges(float x, float y, int octaves, std::uint32_t seed) {
  float sum = 0, weight = 0.5F, below = 1;
  for (int i = 0; i < octaves; ++i, weight *= 0.5F) {
    const float fold = 1 - std::abs(Noise(x, y, seed + static_cast<std::uint32_t>(i)));
    const float crest = fold * fold * below;
    sum += weight * crest;
    below = std::min(1.0F, crest * 1.6F);
    Refine(x, y);
  }
  return sum;
}

float CellBorder(float x, float y, std::uint32_t seed) {
  const int cell_x = Floor(x), cell_y = Floor(y);
  const auto floor_x = static_cast<float>(cell_x), floor_y = static_cast<float>(cell_y);
  struct Offset {
    float x, y;
  };
  std::array<Offset, 9> offsets = {};
  float best = std::numeric_limits<float>::max();
  std::size_t i = 0, winner = 0;
  for (int row = -1; row <= 1; ++row) {
    for (int column = -1; column <= 1; ++column, ++i) {
      const std::uint32_t bits = Hash(cell_x + column, cell_y + row, seed);
      // Points keep off the walls of their cells, so that the neighbours next door are the ones that count.
      offsets[i] = {
          floor_x - x + static_cast<float>(column) + 0.1F + static_cast<float>(bits & 0xFFFFU) * 0.8F * 0x1p-16F,
          floor_y - y + static_cast<float>(row) + 0.1F + static_cast<float>(bits >> 16U) * 0.8F * 0x1p-16F};
      const float square = offsets[i].x * offsets[i].x + offsets[i].y * offsets[i].y;
      if (square >= best) continue;
      best = square;
      winner = i;
    }
  }
  const Offset own = offsets[winner];
  float border = std::numeric_limits<float>::max();
  for (i = 0; i < offsets.size(); ++i) {
    if (i == winner) continue;
    const float apart_x = offsets[i].x - own.x, apart_y = offsets[i].y - own.y;
    const float middle = (offsets[i].x + own.x) * apart_x + (offsets[i].y + own.y) * apart_y;
    border = std::min(border, 0.5F * middle / std::sqrt(apart_x * apart_x + apart_y * apart_y));
  }
  return border;
}

}  // namespace quorvale::samples
