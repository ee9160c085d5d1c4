#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace quorvale {

// A chunk of a PNG file, checksum and all.
inline std::string PngChunk(const std::string& type, const std::string& data) {
  const auto number = [](std::uint32_t value) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift);
    return bytes;
  };
  std::uint32_t crc = 0xFFFFFFFFU;
  for (const char byte : type + data) {
    crc ^= static_cast<std::uint8_t>(byte);
    for (int bit = 0; bit < 8; ++bit) crc = crc >> 1U ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0);
  }
  return number(static_cast<std::uint32_t>(data.size())) + type + data + number(~crc);
}

// Where the first chunk behind the header stands.
constexpr std::size_t kPngHeaderEnd = 33;

}  // namespace quorvale
