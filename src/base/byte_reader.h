#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>

namespace quorvale {

using ByteSpan = std::span<const std::uint8_t>;

// Reads the numbers of a file format in turn, little-endian unless set otherwise. A number that ends beyond the bytes
// is 0.
class ByteReader {
 public:
  explicit ByteReader(ByteSpan bytes, std::size_t at = 0, std::endian order = std::endian::little)
      : bytes_(bytes), at_(at), order_(order) {}

  std::size_t Size() const { return bytes_.size(); }
  std::size_t Left() const { return at_ < bytes_.size() ? bytes_.size() - at_ : 0; }
  std::size_t At() const { return at_; }
  void Seek(std::size_t at) { at_ = at; }
  void Skip(std::size_t count) { at_ += count; }

  std::uint8_t U8() { return static_cast<std::uint8_t>(Read<1>()); }
  std::uint16_t U16() { return static_cast<std::uint16_t>(Read<2>()); }
  std::int16_t I16() { return static_cast<std::int16_t>(U16()); }
  std::uint32_t U24() { return Read<3>(); }
  std::uint32_t U32() { return Read<4>(); }
  std::int32_t I32() { return static_cast<std::int32_t>(U32()); }
  // Infinity and NaN become 0.
  double F32() {
    const auto value = std::bit_cast<float>(U32());
    return std::isfinite(value) ? static_cast<double>(value) : 0;
  }

  // The bytes from here to the end.
  ByteSpan Rest() const { return bytes_.subspan(bytes_.size() - Left()); }
  // Bytes at an offset from the start. Empty unless all of them are there.
  ByteSpan Piece(std::size_t offset, std::size_t count) const {
    if (offset > bytes_.size() || count > bytes_.size() - offset) return {};
    return bytes_.subspan(offset, count);
  }
  // `count`, or fewer if less than that many items of `size` bytes are left.
  std::size_t Capped(std::size_t count, std::size_t size) const { return std::min(count, Left() / size); }

 private:
  template <std::size_t kSize>
  std::uint32_t Read() {
    std::uint32_t number = 0;
    if (Left() >= kSize) {
      const std::uint8_t* const from = bytes_.data() + at_;
      for (std::size_t i = 0; i < kSize; ++i) {
        number = number << 8U | from[order_ == std::endian::big ? i : kSize - 1 - i];
      }
    }
    at_ += kSize;
    return number;
  }

  ByteSpan bytes_;
  std::size_t at_;
  std::endian order_;
};

}  // namespace quorvale
