#include <algorithm>
#include <array>
#include <bit>
#include <csetjmp>
#include <cstddef>
#include <cstdint>
#include <cstdio>  // jpeglib.h needs it
#include <utility>
#include <vector>

#include <jpeglib.h>

#include "platform/desktop/pictures/formats.h"
#include "platform/pictures/embedded_profile.h"

namespace quorvale {
namespace {

// Every block of pixels takes a few bits, even if all are alike. A file with less than one bit for this many blocks has
// lost nearly all of them, or never had them.
constexpr std::size_t kBlocksPerBit = 8;

// Every scan of a progressive file visits all blocks. No camera or tool writes so many scans. The visits are more than
// the usual ten scans need in the largest file that fits in memory.
constexpr int kMostScans = 100;
constexpr std::size_t kMostBlockVisits = 50'000'000;

constexpr std::size_t kBlockBytes = sizeof(JCOEF) * DCTSIZE2;
constexpr std::array<std::uint8_t, 2> kEndMark{0xFF, JPEG_EOI};

// Valgrind takes the last green of a row for undefined where libjpeg mixes colours by PMADDWD: it does not look at the
// halves of that instruction apart. The pixels do not change with what memory held, and without SIMD it is silent.
constexpr J_COLOR_SPACE kPixelSpace = std::endian::native == std::endian::little ? JCS_EXT_BGRA : JCS_EXT_ARGB;

// CMYK files are stored inverted: 255 is no ink.
void MixInks(const std::uint8_t* inks, Pixel* row, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i, inks += 4) {
    const auto mix = [&](int ink) { return Multiplied(inks[ink], inks[3]); };
    row[i] = 0xFF000000U | mix(0) << 16U | mix(1) << 8U | mix(2);
  }
}

// Decodes a JPEG file row by row. The library fails by a long jump, which stays inside: the calls return false, and the
// decoder can't be used after that.
class JpegDecoder {
 public:
  explicit JpegDecoder(PictureFile& file);
  ~JpegDecoder();
  JpegDecoder(const JpegDecoder&) = delete;
  JpegDecoder& operator=(const JpegDecoder&) = delete;

  // False also for a file that is far too small for the size that it claims.
  bool ReadHeader();

  // After `ReadHeader`: the size of the whole picture.
  int Width() const { return static_cast<int>(decoder_.image_width); }
  int Height() const { return static_cast<int>(decoder_.image_height); }
  // The same at a scale of `eighths`/8, 1 to 8.
  int ScaledWidth(int eighths) const { return Scaled(Width(), eighths); }
  int ScaledHeight(int eighths) const { return Scaled(Height(), eighths); }
  bool IsGrey() const { return decoder_.num_components == 1; }
  bool HasInks() const { return decoder_.num_components == 4; }
  // The bytes that a picture of several scans takes before its first row.
  std::size_t Memory() const;

  // Goes to the row `top` of the picture at that scale. Rows will hold the columns from `left` to
  // `right`, the same pixels as if the whole picture were decoded.
  bool Start(int eighths, int left, int right, int top);

  // The next row, valid until the next but one call. Null if damage ends the picture here.
  const Pixel* NextRow();
  // Whether `row` has room for just what the library decodes, so that the next row can be decoded there.
  bool HoldsRow(std::span<Pixel> row) const { return row.size() == decoder_.output_width; }
  // Decodes the next row. False if damage ends the picture here.
  bool ReadRow(Pixel* row);

 private:
  // Callbacks of the library.
  static void OnError(j_common_ptr common);
  static void OnMessage(j_common_ptr common, int level);
  static void OnProgress(j_common_ptr common);
  static boolean FillBuffer(j_decompress_ptr decoder);
  static void SkipBytes(j_decompress_ptr decoder, long count);

  template <typename Body>
  bool Guarded(Body body);
  bool HoldsPixels();
  bool Begin(int eighths);
  void Crop(int left, int right);
  bool Discard(int rows);
  static int Scaled(int size, int eighths) { return static_cast<int>((std::int64_t{size} * eighths + 7) / 8); }

  PictureFile& file_;
  std::size_t end_;
  std::size_t next_offset_ = 0;
  // Where the library stood when it last reported progress.
  std::size_t last_progress_ = 0;
  bool too_much_work_ = false;
  bool at_end_ = false;
  jpeg_decompress_struct decoder_{};
  jpeg_error_mgr errors_{};
  jpeg_source_mgr source_{};
  jpeg_progress_mgr progress_{};
  std::jmp_buf failed_{};
  std::size_t blocks_ = 0;
  bool several_scans_ = false;

  std::array<std::vector<Pixel>, 2> rows_;
  std::size_t current_row_ = 0;
  std::vector<std::uint8_t> inks_;
  int cropped_left_ = 0;
  // Columns decoded before the first one asked for.
  std::size_t margin_ = 0;
};

JpegDecoder::JpegDecoder(PictureFile& file) : file_(file), end_(file.Size()) {
  decoder_.err = jpeg_std_error(&errors_);
  errors_.error_exit = OnError;
  errors_.emit_message = OnMessage;
  decoder_.client_data = this;
  if (!Guarded([this] { jpeg_create_decompress(&decoder_); })) return;
  progress_.progress_monitor = OnProgress;
  decoder_.progress = &progress_;
  source_.init_source = [](j_decompress_ptr) {};
  source_.fill_input_buffer = FillBuffer;
  source_.skip_input_data = SkipBytes;
  source_.resync_to_restart = jpeg_resync_to_restart;
  source_.term_source = [](j_decompress_ptr) {};
  decoder_.src = &source_;
}

JpegDecoder::~JpegDecoder() { jpeg_destroy_decompress(&decoder_); }

// A body holds no object with a destructor, since the jump skips it.
template <typename Body>
bool JpegDecoder::Guarded(Body body) {
  if (setjmp(failed_) != 0) return false;
  body();
  return true;
}

void JpegDecoder::OnError(j_common_ptr common) {
  std::longjmp(static_cast<JpegDecoder*>(common->client_data)->failed_, 1);
}

void JpegDecoder::OnMessage(j_common_ptr /*common*/, int /*level*/) {}

void JpegDecoder::OnProgress(j_common_ptr common) {
  auto& self = *static_cast<JpegDecoder*>(common->client_data);
  const int scan = std::max(self.decoder_.input_scan_number, 0);
  self.too_much_work_ = scan > kMostScans || static_cast<std::size_t>(scan) * self.blocks_ > kMostBlockVisits;
  if (self.too_much_work_) OnError(common);
  // The library has read this marker but not handled it.
  const std::size_t marker_size = self.decoder_.unread_marker != 0 ? 2 : 0;
  self.last_progress_ = self.next_offset_ - self.source_.bytes_in_buffer - marker_size;
}

// At the end of the file the library gets an end mark, and keeps what it has decoded.
boolean JpegDecoder::FillBuffer(j_decompress_ptr decoder) {
  auto& self = *static_cast<JpegDecoder*>(decoder->client_data);
  std::span<const std::uint8_t> bytes;
  if (self.next_offset_ < self.end_) {
    bytes = self.file_.From(self.next_offset_);
    bytes = bytes.first(std::min(bytes.size(), self.end_ - self.next_offset_));
  }
  self.next_offset_ += bytes.size();
  if (bytes.empty()) {
    self.at_end_ = true;
    bytes = kEndMark;
  }
  self.source_.next_input_byte = bytes.data();
  self.source_.bytes_in_buffer = bytes.size();
  return TRUE;
}

void JpegDecoder::SkipBytes(j_decompress_ptr decoder, long count) {
  if (count <= 0) return;
  auto& self = *static_cast<JpegDecoder*>(decoder->client_data);
  const auto skipped = static_cast<std::size_t>(count);
  const std::size_t at_hand = std::min(skipped, self.source_.bytes_in_buffer);
  self.source_.next_input_byte += at_hand;
  self.source_.bytes_in_buffer -= at_hand;
  self.next_offset_ += skipped - at_hand;
}

bool JpegDecoder::ReadHeader() {
  if (decoder_.src == nullptr || !Guarded([this] { jpeg_read_header(&decoder_, TRUE); })) return false;
  several_scans_ = jpeg_has_multiple_scans(&decoder_) != FALSE;
  for (int i = 0; i < decoder_.num_components; ++i) {
    blocks_ += std::size_t{decoder_.comp_info[i].width_in_blocks} * decoder_.comp_info[i].height_in_blocks;
  }
  return file_.Size() >= blocks_ / kBlocksPerBit / 8 && HoldsPixels();
}

std::size_t JpegDecoder::Memory() const { return several_scans_ ? blocks_ * kBlockBytes : 0; }

// Whether pixels follow the header, not a marker.
bool JpegDecoder::HoldsPixels() {
  next_offset_ -= source_.bytes_in_buffer;
  source_.bytes_in_buffer = 0;
  const auto byte = [this](std::size_t offset) {
    const auto bytes = file_.From(offset);
    return bytes.empty() ? -1 : int{bytes.front()};
  };
  const int first = byte(next_offset_);
  return !at_end_ && first >= 0 && (first != 0xFF || byte(next_offset_ + 1) == 0);
}

// Damage between two scans of a progressive file loses only what follows: decoding starts again, and the file ends
// where the library last made progress.
bool JpegDecoder::Start(int eighths, int left, int right, int top) {
  if (!Begin(eighths)) {
    if (last_progress_ == 0 || too_much_work_) return false;
    end_ = last_progress_;
    next_offset_ = 0;
    source_.bytes_in_buffer = 0;
    if (!Guarded([this] {
          jpeg_abort_decompress(&decoder_);
          jpeg_read_header(&decoder_, TRUE);
        })) {
      return false;
    }
    if (!Begin(eighths)) return false;
  }
  // Colour is smoothed with its neighbours, which are decoded too: one block more on each side.
  const int block_width = decoder_.max_h_samp_factor * decoder_.min_DCT_scaled_size;
  const int block_height = decoder_.max_v_samp_factor * decoder_.min_DCT_scaled_size;
  if (!Guarded([&] { Crop(std::max(0, left - block_width), right + block_width); })) return false;
  margin_ = static_cast<std::size_t>(left - cropped_left_);
  for (auto& row : rows_) row.resize(decoder_.output_width);
  if (decoder_.out_color_space == JCS_CMYK) inks_.resize(std::size_t{decoder_.output_width} * 4);
  const int skipped = std::max(0, top - block_height);
  return Guarded([&] { jpeg_skip_scanlines(&decoder_, static_cast<JDIMENSION>(skipped)); }) && Discard(top - skipped);
}

bool JpegDecoder::Begin(int eighths) {
  decoder_.scale_num = static_cast<unsigned>(eighths);
  decoder_.scale_denom = 8;
  decoder_.out_color_space = decoder_.num_components == 4 ? JCS_CMYK : kPixelSpace;
  return Guarded([this] { jpeg_start_decompress(&decoder_); });
}

void JpegDecoder::Crop(int left, int right) {
  auto offset = static_cast<JDIMENSION>(left);
  JDIMENSION width = std::min(static_cast<JDIMENSION>(right), decoder_.output_width) - offset;
  if (width < decoder_.output_width) jpeg_crop_scanline(&decoder_, &offset, &width);
  cropped_left_ = static_cast<int>(offset);
}

bool JpegDecoder::Discard(int rows) {
  for (int i = 0; i < rows; ++i) {
    if (!ReadRow(rows_[0].data())) return false;
  }
  return true;
}

const Pixel* JpegDecoder::NextRow() {
  current_row_ ^= 1U;
  Pixel* row = rows_[current_row_].data();
  return ReadRow(row) ? row + margin_ : nullptr;
}

bool JpegDecoder::ReadRow(Pixel* row) {
  const bool mixed = !inks_.empty();
  JSAMPROW samples = mixed ? inks_.data() : reinterpret_cast<JSAMPROW>(row);
  if (!Guarded([&] { jpeg_read_scanlines(&decoder_, &samples, 1); })) return false;
  if (mixed) MixInks(inks_.data(), row, decoder_.output_width);
  return true;
}

// The largest reduction by the decoder that leaves the picture no smaller than the box. It has fast code for powers of
// two.
int ChooseEighths(const JpegDecoder& decoder, PixelSize box) {
  for (const int eighths : {1, 2, 4}) {
    if (decoder.ScaledWidth(eighths) >= box.width && decoder.ScaledHeight(eighths) >= box.height) return eighths;
  }
  return 8;
}

class JpegRows : public RowSource {
 public:
  JpegRows(std::unique_ptr<JpegDecoder> decoder, PixelSize box)
      : decoder_(std::move(decoder)), eighths_(ChooseEighths(*decoder_, box)) {}

  Side Across() const override { return {decoder_->ScaledWidth(eighths_), decoder_->Width() * eighths_ / 8.0}; }
  Side Down() const override { return {decoder_->ScaledHeight(eighths_), decoder_->Height() * eighths_ / 8.0}; }
  bool IsOpaque() const override { return true; }
  std::size_t Memory() const override { return decoder_->Memory(); }

  bool Start(int left, int right, int top) override {
    next_ = top;
    return decoder_->Start(eighths_, left, right, top);
  }

  const Pixel* Row(int y) override {
    while (next_ <= y) {
      last_ = std::exchange(current_, decoder_->NextRow());
      if (current_ == nullptr) return nullptr;
      ++next_;
    }
    return y == next_ - 1 ? current_ : last_;
  }

  bool Read(int y, std::span<Pixel> to) override {
    if (y != next_ || !decoder_->HoldsRow(to)) return RowSource::Read(y, to);
    ++next_;
    return decoder_->ReadRow(to.data());
  }

 private:
  std::unique_ptr<JpegDecoder> decoder_;
  int eighths_;
  int next_ = 0;
  const Pixel* current_ = nullptr;
  const Pixel* last_ = nullptr;
};

// A photo. Only the part in view is decoded, at a scale near the one at which it is shown.
class JpegPicture : public DecodedPicture<JpegDecoder> {
 public:
  explicit JpegPicture(std::unique_ptr<PictureFile> file) : DecodedPicture(std::move(file)) {
    const CameraTags tags = JpegCameraTags(File());
    Describe({Header().Width(), Header().Height()}, tags.orientation, tags.date_taken);
    // CMYK is converted without a profile.
    if (!Header().HasInks()) UseProfile(JpegProfile(File()), Header().IsGrey());
  }

 protected:
  std::unique_ptr<RowSource> OpenRows(PixelSize stored_box) override {
    return std::make_unique<JpegRows>(TakeDecoder(), stored_box);
  }
};

}  // namespace

bool IsJpeg(PictureFile& file) { return file.BeginsWith("\xFF\xD8"); }

OpenedPicture OpenJpeg(std::unique_ptr<PictureFile> file) { return std::make_shared<JpegPicture>(std::move(file)); }

}  // namespace quorvale
