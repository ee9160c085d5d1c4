#pragma once

#include <cstdint>
#include <string>

namespace quorvale {

inline constexpr std::uint32_t kSndAsync = 1;
inline constexpr std::uint32_t kSndNoDefault = 2;
inline constexpr std::uint32_t kSndFilename = 0x20000;

class SoundPlayer {
 public:
  virtual ~SoundPlayer() = default;

  // Starts the wave file and returns at once; a sound that still plays is cut off. False, and silence,
  // for a file that is missing or no wave file and on a machine without a sound device.
  virtual bool PlaySound(const std::string& path, std::uint32_t flags) = 0;
};

}  // namespace quorvale
