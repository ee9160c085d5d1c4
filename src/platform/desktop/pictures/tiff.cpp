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

// In pixels, of up to eight bytes. Larger strips are decoded row by row.
constexpr auto kLargestStrip = static_cast<std::uint32_t>(kMostAllocated / 8);

// Decodes a TIFF file band by band: strips, tiles side by side, or some rows of a large strip.
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
  std::size_t StoredRowSize() const { return stored_row_.size(); }
  const std::string& DateTaken() const { return date_taken_; }
  std::span<const std::uint8_t> Profile() const;

  // Decodes up to that many rows from `top` on, unless the time is over. Pixels are red, green, blue, alpha from the
  // low byte up, premultiplied unless `LeavesAlphaApart`.
  bool Read(int top, int rows, std::vector<std::uint32_t>& band);

 private:
  bool ReadDate();
  bool CanReadRows() const;
  bool ReadRows(int top, int bottom, std::uint32_t* to);

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
  // The rows of a strip that is read row by row, else 0. Then the next row that the library can decode without starting
  // its strip again, and the row as the file has it.
  int strip_rows_ = 0;
  int next_row_ = 0;
  std::vector<std::uint8_t> stored_row_;
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
  if (rows > kLargestStrip / image_.width && CanReadRows()) {
    strip_rows_ = static_cast<int>(rows);
    stored_row_.resize(static_cast<std::size_t>(TIFFScanlineSize(tiff_)));
    rows = kLeastRows;
  }
  while (rows < kLeastRows) rows *= 2;
  band_rows_ = static_cast<int>(rows);
  return true;
}

// Where a row has all of its pixels and is not too long. JBIG has no rows; the library itself refuses single ones of
// the other compressions that have none.
bool TiffDecoder::CanReadRows() const {
  std::uint16_t compression = 0;
  const tmsize_t size = TIFFScanlineSize(tiff_);
  return size > 0 && size <= kMostAllocated && TIFFIsTiled(tiff_) == 0 && image_.isContig != 0 &&
         image_.photometric != PHOTOMETRIC_YCBCR &&
         TIFFGetFieldDefaulted(tiff_, TIFFTAG_COMPRESSION, &compression) != 0 && compression != COMPRESSION_JBIG;
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
  if (strip_rows_ > 0) return ReadRows(top, top + height, band.data());
  if (stream_.file.IsOverdue()) return false;
  image_.row_offset = top;
  return TIFFRGBAImageGet(&image_, band.data(), image_.width, static_cast<std::uint32_t>(height)) != 0;
}

// The rows above in the same strip have to be decoded, too. The library's own routine for strips makes the pixels.
bool TiffDecoder::ReadRows(int top, int bottom, std::uint32_t* to) {
  const int strip_top = top - top % strip_rows_;
  if (next_row_ > top || next_row_ < strip_top) next_row_ = strip_top;
  for (; next_row_ < bottom; ++next_row_) {
    const auto row = static_cast<std::uint32_t>(next_row_);
    if (stream_.file.IsOverdue() || TIFFReadScanline(tiff_, stored_row_.data(), row, 0) < 0) return false;
    if (next_row_ < top) continue;
    image_.put.contig(&image_, to, 0, row, image_.width, 1, 0, 0, stored_row_.data());
    to += image_.width;
  }
  return true;
}

Pixel ToPixel(std::uint32_t packed) {
  return TIFFGetA(packed) << 24U | TIFFGetR(packed) << 16U | TIFFGetG(packed) << 8U | TIFFGetB(packed);
}

class TiffRows : public SequentialRows {
 public:
  explicit TiffRows(std::unique_ptr<TiffDecoder> decoder)
      : SequentialRows(decoder->Size()), decoder_(std::move(decoder)) {}

  bool IsOpaque() const override { return !decoder_->HasAlpha(); }
  // The band, once as the file has it.
  std::size_t Memory() const override {
    return decoder_->StoredRowSize() + 2 * sizeof(Pixel) * static_cast<std::size_t>(decoder_->BandRows()) *
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
    return decoder_->Read(band_top_, decoder_->BandRows(), band_);
  }

  std::unique_ptr<TiffDecoder> decoder_;
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
    return std::make_unique<TiffRows>(TakeDecoder());
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
