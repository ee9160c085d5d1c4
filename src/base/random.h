#pragma once

#include <cstdint>
#include <random>

namespace quorvale {

// The program's only pseudo-random generator. Equal seeds give equal sequences.
class Random {
 public:
  void Seed(std::uint64_t seed);

  // The next number in [0, 1), a multiple of 2^-24.
  float Next();

 private:
  std::mt19937_64 generator_;
};

}  // namespace quorvale
