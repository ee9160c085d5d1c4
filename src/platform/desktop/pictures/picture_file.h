#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/desktop/system/files.h"
#include "platform/pictures/byte_source.h"
#include "platform/pictures/rendered_picture.h"

namespace quorvale {

// The limits of holding files in memory.
struct PictureReading {
  // Files up to this size in bytes are held in memory.
  std::size_t held_size = std::size_t{8} << 20U;
  // The bytes that are read of a larger file at a time, at least 1.
  std::size_t piece_size = std::size_t{256} << 10U;
};

// The bytes of a picture file. A small file is held in memory. A large one stays open and is read in pieces, so that
// its bytes don't add to the memory of its pixels. Either way the file may be deleted.
class PictureFile : public ByteSource {
 public:
  // Fails with kNotFound or kUnreadable, and with kBadPicture beyond `kPictureMemoryLimit`. Only plain files are
  // readable.
  explicit PictureFile(const std::string& path, PictureReading reading = {});

  std::size_t Size() const { return size_; }

  // All bytes, valid while the file lives. A large file is held from then on, too.
  std::span<const std::uint8_t> All();

  // Starts the time limit of reading. A few seconds later the file seems to end.
  void StartClock() { latest_ = std::chrono::steady_clock::now() + kTimeToRead; }

  // Whether decoding takes so long that it should end with what there is.
  bool IsOverdue() const { return std::chrono::steady_clock::now() > latest_ + kTimeToFinish; }

  std::span<const std::uint8_t> From(std::size_t offset) noexcept override;

  bool BeginsWith(std::string_view bytes) noexcept;

 private:
  // The show stands still meanwhile, so a large file on a slow disk is shown as far as it was read.
  static constexpr std::chrono::seconds kTimeToRead{3};
  static constexpr std::chrono::seconds kTimeToFinish{1};

  void Read(std::size_t offset, std::size_t count);

  std::size_t piece_size_;
  // Closed if all is in memory.
  FileDescriptor file_;
  std::size_t size_ = 0;
  std::chrono::steady_clock::time_point latest_;
  std::vector<std::uint8_t> buffer_;
  std::size_t buffer_offset_ = 0;
};

// A picture of pixels that is decoded from its file again and again.
class FilePicture : public BitmapPicture {
 protected:
  explicit FilePicture(std::unique_ptr<PictureFile> file) : file_(std::move(file)) {}

  PictureFile& File() { return *file_; }

  // Converts from the colours of an ICC profile, which may be empty or damaged. One for greys is used if `is_grey`.
  void UseProfile(std::span<const std::uint8_t> profile, bool is_grey = false);

  // Starts decoding, for a box of that size as stored. Fails with kBadPicture.
  virtual std::unique_ptr<RowSource> OpenRows(PixelSize stored_box) = 0;

 private:
  std::unique_ptr<RowSource> Open(PixelSize stored_box) final {
    file_->StartClock();
    return OpenRows(stored_box);
  }

  std::unique_ptr<PictureFile> file_;
};

// A picture whose `Decoder` reads the header and then the rows, once. It is made of a `PictureFile`; its `ReadHeader`
// returns false or fails with kBadPicture.
template <typename Decoder>
class DecodedPicture : public FilePicture {
 protected:
  explicit DecodedPicture(std::unique_ptr<PictureFile> file) : FilePicture(std::move(file)), next_(ReadHeader()) {}

  // Has read the header. Valid until the first `TakeDecoder`.
  const Decoder& Header() const { return *next_; }

  // For `OpenRows`: has read the header. Fails with kBadPicture.
  std::unique_ptr<Decoder> TakeDecoder() { return next_ ? std::move(next_) : ReadHeader(); }

 private:
  std::unique_ptr<Decoder> ReadHeader() {
    auto decoder = std::make_unique<Decoder>(File());
    if (!decoder->ReadHeader()) FailLoad("Damaged picture");
    return decoder;
  }

  std::unique_ptr<Decoder> next_;
};

}  // namespace quorvale
