#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/desktop/pictures/picture_file.h"

namespace quorvale {

// A file byte by byte, for formats whose lengths are only known on the way. Nothing else reads the file
// meanwhile.
class ByteStream {
 public:
  ByteStream(PictureFile& file, std::size_t offset) : file_(file), offset_(offset) {}

  // The next byte, or -1 at the end of the file.
  int Next() noexcept {
    if (at_ == bytes_.size()) {
      bytes_ = file_.From(offset_);
      offset_ += bytes_.size();
      at_ = 0;
      if (bytes_.empty()) return -1;
    }
    return bytes_[at_++];
  }

 private:
  PictureFile& file_;
  std::size_t offset_;
  std::span<const std::uint8_t> bytes_;
  std::size_t at_ = 0;
};

}  // namespace quorvale
