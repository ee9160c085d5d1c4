#include "platform/desktop/pictures/gif_codes.h"

namespace quorvale {

GifCodes::GifCodes(PictureFile& file, std::size_t offset, int bits)
    : bytes_(file, offset), bits_(bits), clear_(1 << bits) {
  Clear();
}

int GifCodes::Next() {
  if (rest_count_ > 0) return rest_[--rest_count_];
  int code = NextCode();
  for (; code == clear_; code = NextCode()) Clear();
  const int end = clear_ + 1;
  if (code < 0 || code == end || code > new_code_ || (last_code_ < 0 && code > end)) return -1;
  int string = code;
  if (code == new_code_) {
    // The string that is just being made: the last one and its own first pixel.
    rest_[rest_count_++] = static_cast<std::uint8_t>(first_);
    string = last_code_;
  }
  for (; string > end; string = start_[static_cast<std::size_t>(string)]) {
    rest_[rest_count_++] = end_[static_cast<std::size_t>(string)];
  }
  first_ = string;
  Remember(code);
  return first_;
}

void GifCodes::Clear() {
  code_bits_ = bits_ + 1;
  new_code_ = clear_ + 2;
  last_code_ = -1;
}

void GifCodes::Remember(int code) {
  if (last_code_ >= 0 && new_code_ < static_cast<int>(kCodes)) {
    start_[static_cast<std::size_t>(new_code_)] = static_cast<std::uint16_t>(last_code_);
    end_[static_cast<std::size_t>(new_code_)] = static_cast<std::uint8_t>(first_);
    ++new_code_;
  }
  // Pixels of one bit need the third bit as soon as there is a code.
  if (new_code_ == 1 << code_bits_ && code_bits_ < kLongestCode) ++code_bits_;
  last_code_ = code;
}

int GifCodes::NextCode() {
  while (held_bits_ < code_bits_) {
    const int byte = NextByte();
    if (byte < 0) return -1;
    held_ |= static_cast<std::uint32_t>(byte) << static_cast<unsigned>(held_bits_);
    held_bits_ += 8;
  }
  const auto code = static_cast<int>(held_ & ((1U << static_cast<unsigned>(code_bits_)) - 1));
  held_ >>= static_cast<unsigned>(code_bits_);
  held_bits_ -= code_bits_;
  return code;
}

// They come in blocks of up to 255; an empty one is the last.
int GifCodes::NextByte() {
  if (bytes_in_block_ == 0) bytes_in_block_ = bytes_.Next();
  if (bytes_in_block_ <= 0) {
    bytes_in_block_ = -1;
    return -1;
  }
  --bytes_in_block_;
  return bytes_.Next();
}

}  // namespace quorvale
