#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quorvale {

using PictureBytes = std::vector<std::uint8_t>;

// The whole file. Fails with kNotFound or kUnreadable, also for what is no plain file; kBadPicture beyond
// `kPictureMemoryLimit`.
PictureBytes ReadPictureFile(const std::string& path);

// Numbers within a picture's bytes, least byte first; 0 beyond their end.
inline std::uint32_t ByteAt(std::span<const std::uint8_t> bytes, std::size_t at) {
  return at < bytes.size() ? bytes[at] : 0;
}
inline std::uint32_t WordAt(std::span<const std::uint8_t> bytes, std::size_t at) {
  return ByteAt(bytes, at) | ByteAt(bytes, at + 1) << 8U;
}
inline std::uint32_t LongAt(std::span<const std::uint8_t> bytes, std::size_t at) {
  return WordAt(bytes, at) | WordAt(bytes, at + 2) << 16U;
}

}  // namespace quorvale
