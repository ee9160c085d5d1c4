#include "platform/desktop/pictures/bmp_header.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "base/failure.h"

namespace quorvale {
namespace {

// A file's head, and after it a header that begins with its own size. The first kind of header, which
// OS/2 began with, has a form of its own; all later ones begin alike and differ in how much they say.
constexpr std::size_t kFileHead = 14;
constexpr std::size_t kCoreHeader = 12;
constexpr std::size_t kInfoHeader = 40;
constexpr std::size_t kOs2Header = 64;
constexpr std::size_t kLongestHeader = 124;

// Beyond this a row alone would take too much memory, and all rows too much time.
constexpr std::int64_t kLongestSide = 1 << 20;
constexpr std::int64_t kMostPixels = 1 << 30;

// Two bytes make a run of 255 pixels. Jumps might leave out more, but no program draws so sparsely.
constexpr std::size_t kPixelsToByte = 256;

enum Compression : std::uint32_t { kPlain = 0, kRuns8 = 1, kRuns4 = 2, kMasks = 3, kMasksWithAlpha = 6 };

[[noreturn]] void Fail(const char* what) { throw Failure(FailureNumber::kBadPicture, what, "LoadPicture"); }

class HeaderReader {
 public:
  explicit HeaderReader(PictureFile& file) : file_(file) {
    file.Copy(0, bytes_);
    size_ = Number(kFileHead, 4);
    if (size_ < kCoreHeader || size_ > file.Size()) Fail("Damaged picture");
  }

  BmpHeader Read() {
    ReadSize();
    header_.bits = static_cast<int>(IsCore() ? Number(24, 2) : Number(28, 2));
    if (Has(30, 4)) compression_ = Number(30, 4);
    Check();
    header_.runs = compression_ == kRuns8 || compression_ == kRuns4;
    const std::size_t pixels = static_cast<std::size_t>(header_.width) * static_cast<std::size_t>(header_.height);
    if (header_.runs && pixels / kPixelsToByte > file_.Size()) Fail("Damaged picture");
    ReadMasks();
    ReadPalette();
    const std::size_t rows = Number(10, 4);
    header_.rows = rows >= kFileHead + size_ ? rows : palette_end_;
    return header_;
  }

 private:
  bool IsCore() const { return size_ == kCoreHeader; }

  // Whether the header reaches over a field that all but the first kind have.
  bool Has(std::size_t offset, std::size_t size) const { return !IsCore() && offset + size <= kFileHead + size_; }

  std::int64_t Signed(std::size_t offset) const { return static_cast<std::int32_t>(Number(offset, 4)); }

  // What lies beyond the file's end is 0.
  std::uint32_t Number(std::size_t offset, std::size_t size) const {
    std::uint32_t number = 0;
    for (std::size_t i = size; i > 0; --i) number = number << 8U | bytes_[offset + i - 1];
    return number;
  }

  void ReadSize() {
    const std::int64_t width = IsCore() ? std::int64_t{Number(18, 2)} : Signed(18);
    const std::int64_t height = IsCore() ? std::int64_t{Number(20, 2)} : Signed(22);
    header_.top_down = height < 0;
    const std::int64_t rows = header_.top_down ? -height : height;
    if (width <= 0 || rows == 0) Fail("Damaged picture");
    if (width > kLongestSide || rows > kLongestSide || width * rows > kMostPixels) Fail("Picture too large");
    header_.width = static_cast<int>(width);
    header_.height = static_cast<int>(rows);
  }

  void Check() const {
    const int bits = header_.bits;
    const bool depth_known =
        header_.IsPalette() ? bits == 1 || bits == 2 || bits == 4 || bits == 8 : bits == 16 || bits == 24 || bits == 32;
    bool packing_known = false;
    switch (compression_) {
      case kPlain:
        packing_known = true;
        break;
      case kRuns8:
        packing_known = bits == 8;
        break;
      case kRuns4:
        packing_known = bits == 4;
        break;
      case kMasks:
      case kMasksWithAlpha:
        // OS/2 gave the number to a code of fax machines.
        packing_known = (bits == 16 || bits == 32) && size_ != kOs2Header;
        break;
      default:
        break;
    }
    if (!depth_known || !packing_known) Fail("Not a known kind of bitmap");
  }

  // Later headers hold the masks, the early one has them behind it: at the same place.
  void ReadMasks() {
    palette_end_ = kFileHead + size_;
    if (compression_ == kMasks || compression_ == kMasksWithAlpha) {
      const std::size_t masks = kFileHead + kInfoHeader;
      const std::size_t count = compression_ == kMasksWithAlpha || size_ >= kInfoHeader + 16 ? 4 : 3;
      for (std::size_t i = 0; i < count; ++i) header_.masks[i] = Number(masks + 4 * i, 4);
      palette_end_ = std::max(palette_end_, masks + 4 * count);
    } else if (header_.bits == 16) {
      header_.masks = {0x7C00, 0x03E0, 0x001F, 0};
    } else {
      header_.masks = {0xFF0000, 0x00FF00, 0x0000FF, 0};
    }
  }

  // Often shorter than it might be: the rest is black.
  void ReadPalette() {
    if (!header_.IsPalette()) return;
    const std::size_t entry = IsCore() ? 3 : 4;
    const std::size_t start = palette_end_;
    std::size_t count = std::size_t{1} << static_cast<unsigned>(header_.bits);
    header_.palette.assign(count, 0xFF000000U);
    if (Has(46, 4) && Number(46, 4) != 0) count = std::min<std::size_t>(count, Number(46, 4));
    if (const std::size_t rows = Number(10, 4); rows > start) count = std::min(count, (rows - start) / entry);
    palette_end_ += count * entry;
    std::array<std::uint8_t, 4> colour{};
    for (std::size_t i = 0; i < count && file_.Copy(start + i * entry, std::span(colour).first(entry)); ++i) {
      header_.palette[i] = 0xFF000000U | Pixel{colour[2]} << 16U | Pixel{colour[1]} << 8U | colour[0];
    }
  }

  PictureFile& file_;
  std::array<std::uint8_t, kFileHead + kLongestHeader> bytes_{};
  std::size_t size_ = 0;
  std::uint32_t compression_ = kPlain;
  std::size_t palette_end_ = 0;
  BmpHeader header_;
};

}  // namespace

BmpHeader ReadBmpHeader(PictureFile& file) { return HeaderReader(file).Read(); }

}  // namespace quorvale
