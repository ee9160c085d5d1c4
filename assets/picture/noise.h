#pragma once

#include <cstdint>

namespace quorvale::samples {

// Random bits of a lattice point, the same at every call.
inline std::uint32_t Hash(int x, int y, std::uint32_t seed) {
  std::uint32_t h = seed * 0x9E3779B9U + static_cast<std::uint32_t>(x) * 0x85EBCA6BU;
  h = (h ^ (h >> 15U)) + static_cast<std::uint32_t>(y) * 0xC2B2AE35U;
  h = (h ^ (h >> 16U)) * 0x7FEB352DU;
  h = (h ^ (h >> 15U)) * 0x846CA68BU;
  return h ^ (h >> 16U);
}

// The same as a number in [0, 1).
inline float HashUnit(int x, int y, std::uint32_t seed) {
  return static_cast<float>(Hash(x, y, seed) >> 8U) * 0x1p-24F;
}

// A smooth random surface, about -1 to 1, with one bump or hollow per unit square.
float Noise(float x, float y, std::uint32_t seed);

// Noise upon finer and fainter noise: clouds, mottles, rolling ground. About -1 to 1.
float Fractal(float x, float y, int octaves, std::uint32_t seed);

// Noise folded at its zero lines, which become sharp crests; fine crests grow on high ground only, and the
// valleys stay smooth, as if filled with what came down. 0 to about 1.
float Ridges(float x, float y, int octaves, std::uint32_t seed);

// Each unit square holds one point at a random place. The plane is divided into cells nearest to each point; this is
// the distance to the next border of a cell.
float CellBorder(float x, float y, std::uint32_t seed);

// A sequence of random numbers for things that are placed one after another.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : seed_(seed) {}
  float Unit() { return HashUnit(++count_, 0, seed_); }
  float Between(float low, float high) { return low + (high - low) * Unit(); }

 private:
  std::uint32_t seed_;
  int count_ = 0;
};

}  // namespace quorvale::samples
