#pragma once

#include <string>
#include <vector>

namespace quorvale::samples {

inline constexpr int kSoundRate = 44100;  // samples per second

// The bytes of a wave file, 16-bit PCM in one channel. Levels are -1 to 1 and are cut beyond that.
std::string WavBytes(const std::vector<float>& levels);

}  // namespace quorvale::samples
