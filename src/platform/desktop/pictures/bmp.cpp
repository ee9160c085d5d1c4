#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "base/byte_reader.h"
#include "platform/desktop/pictures/formats.h"
#include "platform/pictures/dib.h"

namespace quorvale {
namespace {

// BITMAPFILEHEADER: the mark, sizes, and at byte 10 the offset of the rows.
constexpr std::size_t kFileHeader = 14;
constexpr std::size_t kRowsField = 10;
// BITMAPCOREHEADER, the only header whose colours take three bytes.
constexpr std::size_t kCoreHeader = 12;
// The most bytes of masks and colours behind a header.
constexpr std::size_t kLongestTable = 16 + 256 * 4;

std::size_t NumberAt(PictureFile& file, std::size_t offset) {
  std::array<std::uint8_t, 4> bytes{};
  file.Copy(offset, bytes);
  return ByteReader(bytes).U32();
}

// A bitmap file. Only the rows and columns in view are read.
class BmpPicture : public FilePicture {
 public:
  explicit BmpPicture(std::unique_ptr<PictureFile> file) : FilePicture(std::move(file)), header_(ReadHeader()) {
    // Rows from the bottom up are an orientation like any other.
    Describe({header_.width, header_.height}, {.flipped = !header_.top_down});
  }

 protected:
  std::unique_ptr<RowSource> OpenRows(PixelSize /*stored_box*/) override { return OpenDibRows(File(), rows_, header_); }

 private:
  DibHeader ReadHeader() {
    const std::size_t size = NumberAt(File(), kFileHeader);
    rows_ = NumberAt(File(), kRowsField);
    if (size > File().Size()) FailLoad("Damaged picture");
    std::vector<std::uint8_t> info(
        std::min(size + kLongestTable, File().Size() - std::min(kFileHeader, File().Size())));
    File().Copy(kFileHeader, info);
    ColourTableReading reading;
    const std::size_t info_end = kFileHeader + size;
    if (rows_ > info_end) reading.most_colours = (rows_ - info_end) / (size == kCoreHeader ? 3 : 4);
    const auto header = ReadDibHeader(info, reading);
    if (!header || (header->run_length && !header->FitsInto(File().Size()))) FailLoad("Damaged picture");
    if (rows_ < info_end) rows_ = kFileHeader + header->size;
    return *header;
  }

  std::size_t rows_ = 0;
  DibHeader header_;
};

}  // namespace

bool IsBmp(PictureFile& file) { return file.BeginsWith("BM"); }

OpenedPicture OpenBmp(std::unique_ptr<PictureFile> file) { return std::make_shared<BmpPicture>(std::move(file)); }

}  // namespace quorvale
