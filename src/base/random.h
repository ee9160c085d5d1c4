#pragma once

#include <cstdint>
#include <random>

namespace quorvale {

// The program's only pseudo-random generator. Equal seeds give equal sequences.
class Random {
 public:
  void Seed(std::uint64_t seed) { generator_.seed(seed); }

  // The next number in [0, 1), a multiple of 2^-24.
  float Next() {
    constexpr int kDroppedBits = 64 - 24;
    return static_cast<float>(generator_() >> kDroppedBits) * 0x1p-24F;
  }

 private:
  std::mt19937_64 generator_;
};

}  // namespace quorvale
