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

  // Starts a wave file and returns at once. Ends the previous sound. False, and silence, if the file can't
  // be read, is not a wave file, or the machine has no sound device.
  virtual bool PlaySound(const std::string& path, std::uint32_t flags) = 0;
};

}  // namespace quorvale
