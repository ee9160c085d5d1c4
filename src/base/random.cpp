#include "base/random.h"

namespace quorvale {

void Random::Seed(std::uint64_t seed) { generator_.seed(seed); }

float Random::Next() {
  constexpr int kDroppedBits = 64 - 24;
  return static_cast<float>(generator_() >> kDroppedBits) * 0x1p-24F;
}

}  // namespace quorvale
