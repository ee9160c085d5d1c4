#include "platform/win32/pictures/jpeg_head.h"

#include "platform/win32/pictures/picture_bytes.h"

namespace quorvale {

bool IsProgressiveJpeg(std::span<const std::uint8_t> bytes) {
  constexpr std::uint32_t kBaseline = 0xC0;
  constexpr std::uint32_t kSequential = 0xC1;
  constexpr std::uint32_t kProgressive = 0xC2;
  constexpr std::uint32_t kStartOfScan = 0xDA;
  std::size_t at = 2;
  while (at + 4 <= bytes.size() && bytes[at] == 0xFF) {
    const std::uint32_t marker = bytes[at + 1];
    if (marker == kProgressive) return true;
    if (marker == kBaseline || marker == kSequential || marker == kStartOfScan) return false;
    // A marker may be filled up with more of its first byte.
    at += marker == 0xFF ? 1 : 2 + (std::size_t{bytes[at + 2]} << 8U | bytes[at + 3]);
  }
  return false;
}

}  // namespace quorvale
