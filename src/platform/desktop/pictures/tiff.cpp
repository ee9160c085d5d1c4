#include <tiffio.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "platform/desktop/pictures/formats.h"

namespace quorvale {
namespace {

// The library's own memory for one strip, tile or tag.
constexpr tmsize_t kMostAllocated = tmsize_t{256} << 20U;

// Strips may be as low as one row, for which a call would cost more than its pixels.
constexpr int kLeastRows = 16;

// Decodes a TIFF file band by band: strips or tiles side by side.
class TiffDecoder {
 public:
  explicit TiffDecoder(PictureFile& file);
  ~TiffDecoder();
  TiffDecoder(const TiffDecoder&) = delete;
  TiffDecoder& operator=(const TiffDecoder&) = delete;

  bool ReadHeader();

  // After `ReadHeader`.
  PixelSize Size() const { return {static_cast<int>(image_.width), static_cast<int>(image_.height)}; }
  bool IsGrey() const {
    return image_.photometric == PHOTOMETRIC_MINISBLACK || image_.photometric == PHOTOMETRIC_MINISWHITE;
  }
  bool HasAlpha() const { return image_.alpha != 0; }
  // The library multiplies by an alpha that is stored apart, but not greys that it stands beside.
  bool LeavesAlphaApart() const { return IsGrey() && image_.isContig != 0 && image_.alpha == EXTRASAMPLE_UNASSALPHA; }
  int BandRows() const { return band_rows_; }
  Orientation StoredOrientation() const { return orientation_; }
  const std::string& DateTaken() const { return date_taken_; }
  std::span<const std::uint8_t> Profile() const;

  // Decodes up to that many rows from `top` on. Pixels are red, green, blue, alpha from the low byte up, premultiplied
  // unless `LeavesAlphaApart`.
  bool Read(int top, int rows, std::vector<std::uint32_t>& band);

 private:
  bool ReadDate();

  struct Stream {
    PictureFile& file;
    std::size_t offset = 0;
  };
  static tmsize_t OnRead(thandle_t handle, void* to, tmsize_t count);
  static toff_t OnSeek(thandle_t handle, toff_t offset, int whence);

  Stream stream_;
  TIFF* tiff_ = nullptr;
  TIFFRGBAImage image_{};
  bool has_begun_ = false;
  int band_rows_ = 0;
  Orientation orientation_;
  std::string date_taken_;
};

TiffDecoder::TiffDecoder(PictureFile& file) : stream_{file} {
  TIFFOpenOptions* const options = TIFFOpenOptionsAlloc();
  if (options == nullptr) return;
  TIFFOpenOptionsSetMaxSingleMemAlloc(options, kMostAllocated);
  // The library's own handlers would print messages.
  const auto quiet = [](TIFF*, void*, const char*, const char*, va_list) { return 1; };
  TIFFOpenOptionsSetErrorHandlerExtR(options, quiet, nullptr);
  TIFFOpenOptionsSetWarningHandlerExtR(options, quiet, nullptr);
  tiff_ = TIFFClientOpenExt(
      "picture", "rm", &stream_, OnRead, [](thandle_t, void*, tmsize_t) { return tmsize_t{0}; }, OnSeek,
      [](thandle_t) { return 0; }, [](thandle_t handle) { return toff_t{static_cast<Stream*>(handle)->file.Size()}; },
      nullptr, nullptr, options);
  TIFFOpenOptionsFree(options);
}

TiffDecoder::~TiffDecoder() {
  if (has_begun_) TIFFRGBAImageEnd(&image_);
  if (tiff_ != nullptr) TIFFClose(tiff_);
}

tmsize_t TiffDecoder::OnRead(thandle_t handle, void* to, tmsize_t count) {
  auto& stream = *static_cast<Stream*>(handle);
  const std::size_t size = stream.file.Size();
  const std::size_t left = size - std::min(stream.offset, size);
  const std::size_t wanted = std::min(static_cast<std::size_t>(std::max<tmsize_t>(count, 0)), left);
  if (!stream.file.Copy(stream.offset, {static_cast<std::uint8_t*>(to), wanted})) return 0;
  stream.offset += wanted;
  return static_cast<tmsize_t>(wanted);
}

toff_t TiffDecoder::OnSeek(thandle_t handle, toff_t offset, int whence) {
  auto& stream = *static_cast<Stream*>(handle);
  const std::size_t start = whence == SEEK_CUR ? stream.offset : whence == SEEK_END ? stream.file.Size() : 0;
  stream.offset = start + static_cast<std::size_t>(offset);
  return stream.offset;
}

bool TiffDecoder::ReadHeader() {
  std::array<char, 1024> message{};
  constexpr int kStopAtDamage = 1;
  if (tiff_ == nullptr || !ReadDate() || TIFFRGBAImageOK(tiff_, message.data()) == 0) return false;
  has_begun_ = TIFFRGBAImageBegin(&image_, tiff_, kStopAtDamage, message.data()) != 0;
  constexpr std::uint32_t kMost = kPictureMemoryLimit / sizeof(Pixel);
  if (!has_begun_ || image_.width == 0 || image_.height == 0 || image_.width > kMost / image_.height) return false;
  orientation_ = Orientation::FromExif(image_.orientation);
  // Rows come as they are stored.
  image_.orientation = image_.req_orientation = ORIENTATION_TOPLEFT;
  std::uint32_t rows = image_.height;
  TIFFGetFieldDefaulted(tiff_, TIFFIsTiled(tiff_) != 0 ? TIFFTAG_TILELENGTH : TIFFTAG_ROWSPERSTRIP, &rows);
  rows = std::clamp<std::uint32_t>(rows, 1, image_.height);
  while (rows < kLeastRows) rows *= 2;
  band_rows_ = static_cast<int>(rows);
  return true;
}

// It stands in a directory of its own. The library holds one directory at a time, so the picture's is read
// again; false if it can't be.
bool TiffDecoder::ReadDate() {
  toff_t place = 0;
  if (TIFFGetField(tiff_, TIFFTAG_EXIFIFD, &place) == 0) return true;
  const char* text = nullptr;
  if (TIFFReadEXIFDirectory(tiff_, place) != 0 && TIFFGetField(tiff_, EXIFTAG_DATETIMEORIGINAL, &text) != 0 &&
      text != nullptr) {
    date_taken_ = DayOfExif(text);
  }
  return TIFFSetDirectory(tiff_, 0) != 0;
}

std::span<const std::uint8_t> TiffDecoder::Profile() const {
  std::uint32_t size = 0;
  void* data = nullptr;
  if (TIFFGetField(tiff_, TIFFTAG_ICCPROFILE, &size, &data) == 0) return {};
  return {static_cast<const std::uint8_t*>(data), size};
}

bool TiffDecoder::Read(int top, int rows, std::vector<std::uint32_t>& band) {
  const int height = std::min(rows, Size().height - top);
  band.resize(static_cast<std::size_t>(image_.width) * static_cast<std::size_t>(height));
  image_.row_offset = top;
  return TIFFRGBAImageGet(&image_, band.data(), image_.width, static_cast<std::uint32_t>(height)) != 0;
}

Pixel ToPixel(std::uint32_t packed) {
  return TIFFGetA(packed) << 24U | TIFFGetR(packed) << 16U | TIFFGetG(packed) << 8U | TIFFGetB(packed);
}

class TiffRows : public SequentialRows {
 public:
  TiffRows(std::unique_ptr<TiffDecoder> decoder, const PictureFile& file)
      : SequentialRows(decoder->Size()), decoder_(std::move(decoder)), file_(file) {}

  bool IsOpaque() const override { return !decoder_->HasAlpha(); }
  // The band, once as the file has it.
  std::size_t Memory() const override {
    return 2 * sizeof(Pixel) * static_cast<std::size_t>(decoder_->BandRows()) *
           static_cast<std::size_t>(decoder_->Size().width);
  }

 protected:
  bool GoTo(int top) override { return ReadBand(top); }

  bool Decode(int y, std::span<Pixel> row) override {
    if (y >= band_top_ + decoder_->BandRows() && !ReadBand(y)) return false;
    const auto width = static_cast<std::size_t>(decoder_->Size().width);
    const std::uint32_t* const from = band_.data() + static_cast<std::size_t>(y - band_top_) * width + Left();
    std::transform(from, from + row.size(), row.begin(), ToPixel);
    if (decoder_->LeavesAlphaApart()) {
      for (Pixel& pixel : row) pixel = Premultiplied(pixel, pixel >> 24U);
    }
    return true;
  }

 private:
  bool ReadBand(int y) {
    band_top_ = y - y % decoder_->BandRows();
    return !file_.IsOverdue() && decoder_->Read(band_top_, decoder_->BandRows(), band_);
  }

  std::unique_ptr<TiffDecoder> decoder_;
  const PictureFile& file_;
  std::vector<std::uint32_t> band_;
  int band_top_ = 0;
};

// The first picture of a file.
class TiffPicture : public DecodedPicture<TiffDecoder> {
 public:
  explicit TiffPicture(std::unique_ptr<PictureFile> file) : DecodedPicture(std::move(file)) {
    Describe(Header().Size(), Header().StoredOrientation(), Header().DateTaken());
    UseProfile(Header().Profile(), Header().IsGrey());
  }

 protected:
  std::unique_ptr<RowSource> OpenRows(PixelSize /*stored_box*/) override {
    return std::make_unique<TiffRows>(TakeDecoder(), File());
  }
};

}  // namespace

// In either byte order, with offsets of 32 or 64 bits.
bool IsTiff(PictureFile& file) {
  using namespace std::string_view_literals;
  for (const auto start : {"II\x2A\0"sv, "MM\0\x2A"sv, "II\x2B\0"sv, "MM\0\x2B"sv}) {
    if (file.BeginsWith(start)) return true;
  }
  return false;
}

OpenedPicture OpenTiff(std::unique_ptr<PictureFile> file) { return std::make_shared<TiffPicture>(std::move(file)); }

}  // namespace quorvale
