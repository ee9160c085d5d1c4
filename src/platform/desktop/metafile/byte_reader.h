#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace quorvale::metafile {

using ByteSpan = std::span<const std::uint8_t>;

// Reads little-endian numbers in turn. Reading beyond the end gives 0.
class ByteReader {
 public:
  explicit ByteReader(ByteSpan bytes, std::size_t at = 0) : bytes_(bytes), at_(at) {}

  std::size_t Size() const { return bytes_.size(); }
  std::size_t Left() const { return at_ < bytes_.size() ? bytes_.size() - at_ : 0; }
  std::size_t At() const { return at_; }
  void Seek(std::size_t at) { at_ = at; }
  void Skip(std::size_t count) { at_ += count; }

  std::uint8_t U8() { return Read<std::uint8_t>(); }
  std::uint16_t U16() { return Read<std::uint16_t>(); }
  std::int16_t I16() { return Read<std::int16_t>(); }
  std::uint32_t U32() { return Read<std::uint32_t>(); }
  std::int32_t I32() { return Read<std::int32_t>(); }
  // Infinity and NaN become 0.
  double F32() {
    const auto value = Read<float>();
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
  template <typename Number>
  Number Read() {
    Number number{};
    if (Left() >= sizeof(Number)) std::memcpy(&number, bytes_.data() + at_, sizeof(Number));
    at_ += sizeof(Number);
    return number;
  }

  ByteSpan bytes_;
  std::size_t at_;
};

}  // namespace quorvale::metafile
