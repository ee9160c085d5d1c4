#pragma once

#include <cstdint>
#include <random>

namespace quorvale {

// The program's one generator of pseudo-random numbers. The same seed gives the same numbers.
class Random {
 public:
  void Seed(std::uint64_t seed);

  // The next number in [0, 1), of the 2^24 that a 32-bit float holds at an even spacing.
  float Next();

 private:
  std::mt19937_64 generator_;
};

}  // namespace quorvale
