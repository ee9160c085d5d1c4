#include "platform/pictures/exif_tags.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quorvale {
namespace {

constexpr std::array<std::uint8_t, 6> kSignature{'E', 'x', 'i', 'f', 0, 0};
constexpr std::uint16_t kOrientationTag = 0x0112;
// Kinds of whole numbers; cameras should write the first.
constexpr std::uint32_t kShort = 3;
constexpr std::uint32_t kLong = 4;
constexpr std::uint32_t kSignedShort = 8;
constexpr std::uint32_t kSignedLong = 9;

// A block of tagged values in the byte order that its first two bytes tell.
class TagBlock {
 public:
  explicit TagBlock(std::span<const std::uint8_t> bytes)
      : bytes_(bytes), big_endian_(!bytes.empty() && bytes[0] == 'M') {}

  std::optional<int> Orientation() const {
    const auto directory = Number(4, 4);
    if (!directory) return std::nullopt;
    const auto entries = Number(*directory, 2);
    for (std::uint32_t i = 0; entries && i < *entries; ++i) {
      const std::size_t entry = std::size_t{*directory} + 2 + std::size_t{12} * i;
      const auto tag = Number(entry, 2);
      if (!tag) break;
      if (*tag != kOrientationTag) continue;
      const auto value = WholeNumber(entry);
      if (value && *value >= 1 && *value <= 8) return static_cast<int>(*value);
    }
    return std::nullopt;
  }

 private:
  // The first value of an entry.
  std::optional<std::uint32_t> WholeNumber(std::size_t entry) const {
    switch (Number(entry + 2, 2).value_or(0)) {
      case kShort:
      case kSignedShort:
        return Number(entry + 8, 2);
      case kLong:
      case kSignedLong:
        return Number(entry + 8, 4);
      default:
        return std::nullopt;
    }
  }

  std::optional<std::uint32_t> Number(std::size_t offset, std::size_t size) const {
    if (offset > bytes_.size() || bytes_.size() - offset < size) return std::nullopt;
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < size; ++i) {
      number = number << 8U | bytes_[offset + (big_endian_ ? i : size - 1 - i)];
    }
    return number;
  }

  std::span<const std::uint8_t> bytes_;
  bool big_endian_;
};

}  // namespace

std::optional<int> OrientationInSegment(std::span<const std::uint8_t> segment) {
  if (segment.size() <= kSignature.size()) return std::nullopt;
  if (!std::equal(kSignature.begin(), kSignature.end(), segment.begin())) return std::nullopt;
  return TagBlock(segment.subspan(kSignature.size())).Orientation().value_or(1);
}

}  // namespace quorvale
