#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace quorvale {

// Bytes that come in pieces. Nothing here throws, since the callers are callbacks of C libraries.
class ByteSource {
 public:
  virtual ~ByteSource() = default;

  // A piece of the bytes that starts at `offset`. Empty at the end. Valid until the next call.
  virtual std::span<const std::uint8_t> From(std::size_t offset) noexcept = 0;

  // Fills `to` from `offset` on. False if the bytes end before; what there is has been copied.
  bool Copy(std::size_t offset, std::span<std::uint8_t> to) noexcept {
    while (!to.empty()) {
      const auto bytes = From(offset);
      if (bytes.empty()) return false;
      const std::size_t count = std::min(bytes.size(), to.size());
      std::copy_n(bytes.begin(), count, to.begin());
      to = to.subspan(count);
      offset += count;
    }
    return true;
  }
};

// Bytes in memory that somebody else owns.
class MemoryBytes : public ByteSource {
 public:
  explicit MemoryBytes(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  std::span<const std::uint8_t> From(std::size_t offset) noexcept override {
    return bytes_.subspan(std::min(offset, bytes_.size()));
  }

 private:
  std::span<const std::uint8_t> bytes_;
};

// Reads byte by byte, for formats whose lengths are known only on the way. Nothing else may read the source meanwhile.
class ByteStream {
 public:
  ByteStream(ByteSource& source, std::size_t offset) : source_(source), offset_(offset) {}

  // The next byte, or -1 at the end.
  int Next() noexcept {
    if (at_ == bytes_.size()) {
      bytes_ = source_.From(offset_);
      offset_ += bytes_.size();
      at_ = 0;
      if (bytes_.empty()) return -1;
    }
    return bytes_[at_++];
  }

 private:
  ByteSource& source_;
  std::size_t offset_;
  std::span<const std::uint8_t> bytes_;
  std::size_t at_ = 0;
};

}  // namespace quorvale
