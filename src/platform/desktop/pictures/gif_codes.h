#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/desktop/pictures/byte_stream.h"

namespace quorvale {

// The pixels of a GIF frame: codes of growing width, each of which stands for a string of pixels that
// has come before.
class GifCodes {
 public:
  // `bits` is the width of a pixel, 1 to 11.
  GifCodes(PictureFile& file, std::size_t offset, int bits);

  // The number of the next pixel's colour, of which the low 8 bits count; -1 where the codes end or make no sense.
  int Next();

 private:
  static constexpr int kLongestCode = 12;
  static constexpr std::size_t kCodes = std::size_t{1} << kLongestCode;

  void Clear();
  int NextCode();
  void Remember(int code);
  int NextByte();

  ByteStream bytes_;
  int bytes_in_block_ = 0;
  std::uint32_t held_ = 0;
  int held_bits_ = 0;

  int bits_;
  int clear_;
  // The width of the next code, and what the next new one will be.
  int code_bits_ = 0;
  int new_code_ = 0;
  int last_code_ = -1;
  // The first pixel of the last string.
  int first_ = 0;
  // A string is another one and a pixel more.
  std::array<std::uint16_t, kCodes> start_{};
  std::array<std::uint8_t, kCodes> end_{};
  // The rest of a string, backwards.
  std::array<std::uint8_t, kCodes + 1> rest_{};
  std::size_t rest_count_ = 0;
};

}  // namespace quorvale
