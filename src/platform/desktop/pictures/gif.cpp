#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "platform/desktop/pictures/formats.h"

// GIF: the first frame is shown. giflib decodes it row by row; the limits of time and memory are here.

namespace quorvale {
namespace {

// A code of one and a half bytes stands for at most 4096 pixels, and a file that claims more is damaged. Without this
// limit 86 bytes can cost 442 MB.
constexpr std::int64_t kGifPixelsToByte = 4096;
// A larger picture would take too much time, however small its file.
constexpr std::int64_t kMostPixels = 1 << 28;

constexpr Pixel kOpaqueBlack = 0xFF000000U;

struct CloseGif {
  void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};

// Reads a file up to its first frame, and then the rows of that frame.
class GifDecoder {
 public:
  explicit GifDecoder(PictureFile& file) : file_(file), gif_(DGifOpen(this, OnRead, nullptr)) {}

  // False or kBadPicture also if the file is too small to hold so many pixels.
  bool ReadHeader() {
    if (!gif_) return false;
    palette_.fill(kOpaqueBlack);
    ReadColours(gif_->SColorMap);
    GifRecordType record = UNDEFINED_RECORD_TYPE;
    while (Succeeds(DGifGetRecordType(gif_.get(), &record)) && record != IMAGE_DESC_RECORD_TYPE) {
      if (record != EXTENSION_RECORD_TYPE) FailLoad("Damaged picture");
      ReadExtension();
    }
    Succeeds(DGifGetImageDesc(gif_.get()));
    reads_codes_ = true;
    ReadColours(gif_->Image.ColorMap);
    if (transparent_ >= 0) palette_[static_cast<std::size_t>(transparent_)] = 0;
    ReadSize();
    return true;
  }

  PixelSize Size() const { return size_; }
  // Outside the frame, and where it has the transparent colour, the picture is transparent.
  const PixelRect& Frame() const { return frame_; }
  bool IsOpaque() const { return transparent_ < 0 && frame_ == PixelRect{0, 0, size_.width, size_.height}; }
  bool IsInterlaced() const { return gif_->Image.Interlace; }
  Pixel Colour(std::uint8_t index) const { return palette_[index]; }

  // The colour indices of the frame's next row in the order of the file. False if the codes end or are damaged.
  bool ReadRow(std::span<std::uint8_t> row) {
    return DGifGetLine(gif_.get(), row.data(), static_cast<int>(row.size())) != GIF_ERROR;
  }

 private:
  // Returns the number of bytes read. The library decodes whole blocks only, so a block of codes that the end of the
  // file cuts off gets the length that is left, and after it comes an empty block.
  static int OnRead(GifFileType* gif, GifByteType* to, int count) {
    auto& self = *static_cast<GifDecoder*>(gif->UserData);
    const std::size_t left = self.file_.Size() - std::min(self.offset_, self.file_.Size());
    const std::size_t wanted = std::min(static_cast<std::size_t>(count), left);
    const bool is_length = self.reads_codes_ && count == 1;
    if (is_length && wanted == 0) *to = 0;
    if (!self.file_.Copy(self.offset_, std::span(to, wanted))) return 0;
    self.offset_ += wanted;
    if (!is_length) return static_cast<int>(wanted);
    *to = static_cast<GifByteType>(std::min<std::size_t>(*to, left - wanted));
    return 1;
  }

  static bool Succeeds(int result) {
    if (result == GIF_ERROR) FailLoad("Damaged picture");
    return true;
  }

  void ReadColours(const ColorMapObject* map) {
    if (map == nullptr) return;
    const std::size_t count = std::min(palette_.size(), static_cast<std::size_t>(map->ColorCount));
    for (std::size_t i = 0; i < count; ++i) {
      const GifColorType& colour = map->Colors[i];
      palette_[i] = kOpaqueBlack | Pixel{colour.Red} << 16U | Pixel{colour.Green} << 8U | colour.Blue;
    }
  }

  // The graphic control extension holds the transparent colour of the next frame. A block begins with its size.
  void ReadExtension() {
    int code = 0;
    GifByteType* block = nullptr;
    Succeeds(DGifGetExtension(gif_.get(), &code, &block));
    if (code == GRAPHICS_EXT_FUNC_CODE && block != nullptr && block[0] >= 4) {
      transparent_ = (block[1] & 1) != 0 ? block[4] : -1;
    }
    while (block != nullptr) Succeeds(DGifGetExtensionNext(gif_.get(), &block));
  }

  // A frame that reaches beyond the screen makes the picture larger.
  void ReadSize() {
    frame_ = {gif_->Image.Left, gif_->Image.Top, gif_->Image.Width, gif_->Image.Height};
    if (frame_.IsEmpty()) FailLoad("Damaged picture");
    size_ = {std::max(gif_->SWidth, frame_.Right()), std::max(gif_->SHeight, frame_.Bottom())};
    const std::int64_t pixels = std::int64_t{size_.width} * size_.height;
    if (pixels > kMostPixels) FailLoad("Picture too large");
    if (pixels / kGifPixelsToByte > static_cast<std::int64_t>(file_.Size())) FailLoad("Damaged picture");
  }

  PictureFile& file_;
  std::size_t offset_ = 0;
  // From then on, reads of one byte are the lengths of blocks.
  bool reads_codes_ = false;
  std::unique_ptr<GifFileType, CloseGif> gif_;
  std::array<Pixel, 256> palette_{};
  int transparent_ = -1;
  PixelSize size_;
  PixelRect frame_;
};

class GifRows : public SequentialRows {
 public:
  explicit GifRows(std::unique_ptr<GifDecoder> decoder)
      : SequentialRows(decoder->Size()), decoder_(std::move(decoder)), frame_(decoder_->Frame()) {}

  bool IsOpaque() const override { return decoder_->IsOpaque(); }

 protected:
  bool Decode(int y, std::span<Pixel> row) override {
    std::fill(row.begin(), row.end(), 0);
    if (y < frame_.top || y >= frame_.Bottom()) return true;
    const std::uint8_t* const indices = FrameRow(y - frame_.top);
    if (indices == nullptr) return false;
    const int first = std::max(Left(), frame_.left);
    const int end = std::min(Left() + static_cast<int>(row.size()), frame_.Right());
    for (int x = first; x < end; ++x) {
      row[static_cast<std::size_t>(x - Left())] = decoder_->Colour(indices[x - frame_.left]);
    }
    return true;
  }

  // The colour indices of a row of the frame. Null if the codes have ended. Rows are asked for from the top down.
  virtual const std::uint8_t* FrameRow(int y) = 0;

  const PixelRect& Frame() const { return frame_; }
  std::size_t FrameWidth() const { return static_cast<std::size_t>(frame_.width); }
  GifDecoder& Decoder() { return *decoder_; }

 private:
  std::unique_ptr<GifDecoder> decoder_;
  PixelRect frame_;
};

class PlainRows : public GifRows {
 public:
  using GifRows::GifRows;

 protected:
  // A file without a single row fails, whatever part is in view.
  bool GoTo(int top) override {
    row_.resize(FrameWidth());
    if (FrameRow(0) == nullptr) return false;
    const int passed = std::min(top - Frame().top, Frame().height);
    if (passed > 0) FrameRow(passed - 1);
    return true;
  }

  const std::uint8_t* FrameRow(int y) override {
    for (; is_good_ && done_ <= y; ++done_) is_good_ = Decoder().ReadRow(row_);
    return is_good_ ? row_.data() : nullptr;
  }

 private:
  std::vector<std::uint8_t> row_;
  int done_ = 0;
  bool is_good_ = true;
};

// Interlaced: every eighth row first, then the ones halfway between, and so on. All are decoded before one is shown.
class InterlacedRows : public GifRows {
 public:
  using GifRows::GifRows;

  std::size_t Memory() const override { return FrameWidth() * static_cast<std::size_t>(Frame().height); }

 protected:
  bool GoTo(int /*top*/) override {
    indices_.resize(Memory());
    is_stored_.resize(static_cast<std::size_t>(Frame().height));
    return (StorePass(0, 8) && StorePass(4, 8) && StorePass(2, 4) && StorePass(1, 2)) || is_stored_[0];
  }

  // A missing row is replaced by the nearest one above from an earlier pass.
  const std::uint8_t* FrameRow(int y) override {
    for (int distance = 1; distance <= 8; distance *= 2) {
      const auto row = static_cast<std::size_t>(y - y % distance);
      if (is_stored_[row]) return indices_.data() + row * FrameWidth();
    }
    return nullptr;
  }

 private:
  bool StorePass(int first, int step) {
    for (int y = first; y < Frame().height; y += step) {
      const auto row = static_cast<std::size_t>(y);
      if (!Decoder().ReadRow(std::span(indices_).subspan(row * FrameWidth(), FrameWidth()))) return false;
      is_stored_[row] = true;
    }
    return true;
  }

  std::vector<std::uint8_t> indices_;
  std::vector<bool> is_stored_;
};

// The file is decoded down to the last row in view.
class GifPicture : public DecodedPicture<GifDecoder> {
 public:
  explicit GifPicture(std::unique_ptr<PictureFile> file) : DecodedPicture(std::move(file)) {
    Describe(Header().Size(), {});
  }

 protected:
  std::unique_ptr<RowSource> OpenRows(PixelSize /*stored_box*/) override {
    auto decoder = TakeDecoder();
    if (decoder->IsInterlaced()) return std::make_unique<InterlacedRows>(std::move(decoder));
    return std::make_unique<PlainRows>(std::move(decoder));
  }
};

}  // namespace

bool IsGif(PictureFile& file) { return file.BeginsWith("GIF8"); }

OpenedPicture OpenGif(std::unique_ptr<PictureFile> file) { return std::make_shared<GifPicture>(std::move(file)); }

}  // namespace quorvale
