#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop/system/file_descriptor.h"

namespace quorvale {

// A RIFF wave file of any coding, read in pieces so that its length costs no memory.
class WaveFile {
 public:
  // Nothing for what is no plain file, or holds no format with data behind it. Sizes in its headers are
  // trusted no further than the file's end.
  static std::optional<WaveFile> Open(const std::string& path);

  // The next quarter of a second or less as a small wave file of its own, header included; empty at the
  // end of the data or where the file can't be read any more.
  std::vector<std::uint8_t> NextPiece();

 private:
  WaveFile() = default;
  bool FindData(std::uint64_t file_size);
  bool ReadFormat(std::uint64_t position, std::uint32_t size);

  FileDescriptor file_;
  std::vector<std::uint8_t> format_;  // the body of the format chunk
  std::uint64_t position_ = 0;
  std::uint64_t end_ = 0;
  std::uint32_t piece_size_ = 0;  // bytes, whole blocks
};

}  // namespace quorvale
