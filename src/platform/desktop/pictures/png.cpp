#include <png.h>

#include <algorithm>
#include <bit>
#include <csetjmp>
#include <span>
#include <utility>
#include <vector>

#include "platform/desktop/pictures/formats.h"
#include "platform/pictures/embedded_profile.h"

namespace quorvale {
namespace {

// The most pixels that the format can pack into a byte.
constexpr std::int64_t kPngPixelsToByte = 8300;

constexpr png_byte kProfileChunk[] = {'i', 'C', 'C', 'P', 0};

// Decodes a PNG file row by row. libpng fails by a long jump, which stays inside: the calls return false, and the
// decoder can't be used after that.
class PngDecoder {
 public:
  explicit PngDecoder(PictureFile& file);
  ~PngDecoder() { png_destroy_read_struct(&png_, &info_, nullptr); }
  PngDecoder(const PngDecoder&) = delete;
  PngDecoder& operator=(const PngDecoder&) = delete;

  // False also for a file that is too small for the size that it claims. Fails with kBadPicture if the picture is too
  // large.
  bool ReadHeader();

  // After `ReadHeader`, before `Start`.
  int Width() const { return static_cast<int>(png_get_image_width(png_, info_)); }
  int Height() const { return static_cast<int>(png_get_image_height(png_, info_)); }
  bool IsGrey() const { return (png_get_color_type(png_, info_) & PNG_COLOR_MASK_COLOR) == 0; }
  bool HasAlpha() const {
    return (png_get_color_type(png_, info_) & PNG_COLOR_MASK_ALPHA) != 0 ||
           png_get_valid(png_, info_, PNG_INFO_tRNS) != 0;
  }
  std::span<const std::uint8_t> Profile() const {
    png_charp name = nullptr;
    int compression = 0;
    png_bytep profile = nullptr;
    png_uint_32 size = 0;
    if (png_get_iCCP(png_, info_, &name, &compression, &profile, &size) == 0) return {};
    return {profile, size};
  }
  bool IsInterlaced() const { return png_get_interlace_type(png_, info_) != PNG_INTERLACE_NONE; }

  // Before the first row. Rows are pixels whose colours are not premultiplied.
  bool Start();
  bool ReadRow(Pixel* row);
  // All rows of an interlaced file, one after the other. If damage ends them, the result of the passes before stays.
  // False if there is not even one whole pass.
  bool ReadPasses(std::span<Pixel> pixels);

 private:
  // Callbacks of the library. Its own would print messages.
  [[noreturn]] static void OnError(png_structp png, png_const_charp text);
  static void OnWarning(png_structp /*png*/, png_const_charp /*text*/) {}
  static void OnRead(png_structp png, png_bytep to, std::size_t count);

  template <typename Body>
  bool Guarded(Body body);

  PictureFile& file_;
  std::size_t offset_ = 0;
  std::jmp_buf failed_{};
  png_structp png_ = nullptr;
  png_infop info_ = nullptr;
  int passes_ = 1;
};

PngDecoder::PngDecoder(PictureFile& file)
    : file_(file), png_(png_create_read_struct(PNG_LIBPNG_VER_STRING, this, OnError, OnWarning)) {
  if (png_ == nullptr) return;
  info_ = png_create_info_struct(png_);
  png_set_read_fn(png_, this, OnRead);
}

// A body holds no object with a destructor, since the jump skips it.
template <typename Body>
bool PngDecoder::Guarded(Body body) {
  if (setjmp(failed_) != 0) return false;
  body();
  return true;
}

void PngDecoder::OnError(png_structp png, png_const_charp /*text*/) {
  std::longjmp(static_cast<PngDecoder*>(png_get_error_ptr(png))->failed_, 1);
}

void PngDecoder::OnRead(png_structp png, png_bytep to, std::size_t count) {
  auto& self = *static_cast<PngDecoder*>(png_get_io_ptr(png));
  if (!self.file_.Copy(self.offset_, {to, count})) png_error(png, "");
  self.offset_ += count;
}

bool PngDecoder::ReadHeader() {
  const bool is_read = info_ != nullptr && Guarded([this] {
                         // Ignores all chunks but those of the pixels and the profile: compressed texts can take any
                         // amount of memory.
                         png_set_keep_unknown_chunks(png_, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
                         png_set_keep_unknown_chunks(png_, PNG_HANDLE_CHUNK_AS_DEFAULT, kProfileChunk, 1);
                         png_set_chunk_malloc_max(png_, kLongestProfile);
                         png_read_info(png_, info_);
                       });
  if (!is_read) return false;
  const std::int64_t pixels = std::int64_t{Width()} * Height();
  if (pixels > static_cast<std::int64_t>(kPictureMemoryLimit / sizeof(Pixel))) FailLoad("Picture too large");
  return pixels / kPngPixelsToByte <= static_cast<std::int64_t>(file_.Size());
}

bool PngDecoder::Start() {
  return Guarded([this] {
    png_set_expand(png_);
    png_set_scale_16(png_);
    png_set_gray_to_rgb(png_);
    constexpr bool kBlueFirst = std::endian::native == std::endian::little;
    if (kBlueFirst) {
      png_set_bgr(png_);
    } else {
      png_set_swap_alpha(png_);
    }
    png_set_add_alpha(png_, 0xFF, kBlueFirst ? PNG_FILLER_AFTER : PNG_FILLER_BEFORE);
    passes_ = png_set_interlace_handling(png_);
    png_read_update_info(png_, info_);
  });
}

bool PngDecoder::ReadRow(Pixel* row) {
  return Guarded([&] { png_read_row(png_, reinterpret_cast<png_bytep>(row), nullptr); });
}

bool PngDecoder::ReadPasses(std::span<Pixel> pixels) {
  const auto width = static_cast<std::size_t>(Width());
  for (int pass = 0; pass < passes_; ++pass) {
    for (std::size_t at = 0; at < pixels.size(); at += width) {
      // The library fills a row for display: each pixel of a pass also takes the places of those in later passes.
      const bool read = Guarded([&] { png_read_row(png_, nullptr, reinterpret_cast<png_bytep>(&pixels[at])); });
      if (!read) return pass > 0;
    }
  }
  return true;
}

class PngRows : public SequentialRows {
 public:
  explicit PngRows(std::unique_ptr<PngDecoder> decoder)
      : SequentialRows({decoder->Width(), decoder->Height()}),
        decoder_(std::move(decoder)),
        opaque_(!decoder_->HasAlpha()),
        interlaced_(decoder_->IsInterlaced()),
        width_(static_cast<std::size_t>(decoder_->Width())),
        count_(width_ * static_cast<std::size_t>(decoder_->Height())) {}

  bool IsOpaque() const override { return opaque_; }
  std::size_t Memory() const override { return interlaced_ ? count_ * sizeof(Pixel) : 0; }

 protected:
  bool GoTo(int top) override {
    pixels_.resize(interlaced_ ? count_ : width_);
    if (!decoder_->Start()) return false;
    if (interlaced_) return decoder_->ReadPasses(pixels_);
    for (int y = 0; y < top; ++y) {
      if (!decoder_->ReadRow(pixels_.data())) return false;
    }
    return true;
  }

  bool Decode(int y, std::span<Pixel> row) override {
    const Pixel* from = pixels_.data() + Left();
    if (interlaced_) {
      from += static_cast<std::size_t>(y) * width_;
    } else if (!decoder_->ReadRow(pixels_.data())) {
      return false;
    }
    if (opaque_) {
      std::copy_n(from, row.size(), row.begin());
    } else {
      std::transform(from, from + row.size(), row.begin(),
                     [](Pixel pixel) { return Premultiplied(pixel, pixel >> 24U); });
    }
    return true;
  }

 private:
  std::unique_ptr<PngDecoder> decoder_;
  bool opaque_;
  bool interlaced_;
  std::size_t width_;
  std::size_t count_;
  // One row, or all of an interlaced file.
  std::vector<Pixel> pixels_;
};

// Decoded down to the last row in view. An interlaced file is decoded as a whole.
class PngPicture : public DecodedPicture<PngDecoder> {
 public:
  explicit PngPicture(std::unique_ptr<PictureFile> file) : DecodedPicture(std::move(file)) {
    const CameraTags tags = PngCameraTags(File());
    Describe({Header().Width(), Header().Height()}, tags.orientation, tags.date_taken);
    UseProfile(Header().Profile(), Header().IsGrey());
  }

 protected:
  std::unique_ptr<RowSource> OpenRows(PixelSize /*stored_box*/) override {
    return std::make_unique<PngRows>(TakeDecoder());
  }
};

}  // namespace

bool IsPng(PictureFile& file) { return file.BeginsWith("\x89PNG"); }

OpenedPicture OpenPng(std::unique_ptr<PictureFile> file) { return std::make_shared<PngPicture>(std::move(file)); }

}  // namespace quorvale
