#include "platform/desktop/pictures/gif_header.h"

#include <algorithm>
#include <cstdint>
#include <span>

#include "base/failure.h"

namespace quorvale {
namespace {

constexpr std::size_t kScreenHead = 13;
constexpr int kFrameBlock = 0x2C;
constexpr int kExtensionBlock = 0x21;
constexpr int kControlLabel = 0xF9;
constexpr int kHasPalette = 0x80;
constexpr int kInterlaced = 0x40;

// Codes grow to 12 bits. Pixels have no more than 8, but some files begin wider all the same.
constexpr int kWidestStart = 11;

// A code of one and a half bytes stands for at most as many pixels as there are codes.
constexpr std::int64_t kPixelsToByte = 4096;
// Beyond this drawing would take too much time, however small the file.
constexpr std::int64_t kMostPixels = 1 << 28;

[[noreturn]] void Fail(const char* what) { throw Failure(FailureNumber::kBadPicture, what, "LoadPicture"); }

class HeaderReader {
 public:
  explicit HeaderReader(PictureFile& file) : file_(file) {}

  GifHeader Read() {
    const auto screen = Take<kScreenHead>();
    header_.size = {Number(screen, 6), Number(screen, 8)};
    header_.palette.fill(0xFF000000U);
    if ((screen[10] & kHasPalette) != 0) ReadPalette(screen[10]);
    for (int kind = TakeByte(); kind != kFrameBlock; kind = TakeByte()) {
      if (kind != kExtensionBlock) Fail("Damaged picture");
      if (TakeByte() == kControlLabel) ReadControl();
      SkipBlocks();
    }
    ReadFrame();
    if (transparent_ >= 0) header_.palette[static_cast<std::size_t>(transparent_)] = 0;
    header_.has_transparent = transparent_ >= 0;
    header_.code_bits = TakeByte();
    if (header_.code_bits < 1 || header_.code_bits > kWidestStart) Fail("Damaged picture");
    header_.codes = offset_;
    return header_;
  }

 private:
  template <std::size_t kCount>
  std::array<std::uint8_t, kCount> Take() {
    std::array<std::uint8_t, kCount> bytes{};
    if (!file_.Copy(offset_, bytes)) Fail("Damaged picture");
    offset_ += kCount;
    return bytes;
  }
  int TakeByte() { return Take<1>()[0]; }

  static int Number(std::span<const std::uint8_t> bytes, std::size_t at) { return bytes[at] | bytes[at + 1] << 8; }

  void ReadPalette(int flags) {
    const std::size_t count = std::size_t{2} << (static_cast<unsigned>(flags) & 7U);
    for (std::size_t i = 0; i < count; ++i) {
      const auto colour = Take<3>();
      header_.palette[i] = 0xFF000000U | Pixel{colour[0]} << 16U | Pixel{colour[1]} << 8U | colour[2];
    }
  }

  // How the next frame is drawn.
  void ReadControl() {
    std::array<std::uint8_t, 5> control{};
    if (!file_.Copy(offset_, control) || control[0] < 4) return;
    transparent_ = (control[1] & 1) != 0 ? control[4] : -1;
  }

  void SkipBlocks() {
    for (int size = TakeByte(); size > 0; size = TakeByte()) offset_ += static_cast<std::size_t>(size);
  }

  // A frame that reaches over the screen makes it larger.
  void ReadFrame() {
    const auto frame = Take<9>();
    header_.frame = {Number(frame, 0), Number(frame, 2), Number(frame, 4), Number(frame, 6)};
    if (header_.frame.IsEmpty()) Fail("Damaged picture");
    PixelSize& size = header_.size;
    size = {std::max(size.width, header_.frame.Right()), std::max(size.height, header_.frame.Bottom())};
    const std::int64_t pixels = std::int64_t{size.width} * size.height;
    if (pixels > kMostPixels) Fail("Picture too large");
    if (pixels / kPixelsToByte > static_cast<std::int64_t>(file_.Size())) Fail("Damaged picture");
    header_.interlaced = (frame[8] & kInterlaced) != 0;
    if ((frame[8] & kHasPalette) != 0) ReadPalette(frame[8]);
  }

  PictureFile& file_;
  std::size_t offset_ = 0;
  int transparent_ = -1;
  GifHeader header_;
};

}  // namespace

GifHeader ReadGifHeader(PictureFile& file) { return HeaderReader(file).Read(); }

}  // namespace quorvale
