#include "platform/desktop/pictures/jpeg_decoder.h"

#include <jerror.h>

#include <algorithm>
#include <array>
#include <bit>

namespace quorvale {
namespace {

// A decoder spends a few bits on every block of pixels even where all are alike; a file with less than
// one for this many blocks has lost nearly all, or never had it.
constexpr std::size_t kBlocksPerBit = 8;

// Every scan of a progressive file goes over all the blocks. No camera or tool writes so many scans; the
// visits are more than the usual ten scans of the largest file that fits in memory take.
constexpr int kMostScans = 100;
constexpr std::size_t kMostBlockVisits = 50'000'000;

constexpr std::size_t kBlockBytes = sizeof(JCOEF) * DCTSIZE2;
constexpr std::array<std::uint8_t, 2> kEndMark{0xFF, JPEG_EOI};

constexpr J_COLOR_SPACE kPixelSpace = std::endian::native == std::endian::little ? JCS_EXT_BGRA : JCS_EXT_ARGB;

// Four-ink files are written inverted, 255 being no ink.
void MixInks(const std::uint8_t* inks, Pixel* row, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i, inks += 4) {
    const auto mix = [&](int ink) { return (Pixel{inks[ink]} * inks[3] + 127U) / 255U; };
    row[i] = 0xFF000000U | mix(0) << 16U | mix(1) << 8U | mix(2);
  }
}

}  // namespace

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

// The bodies hold nothing that a jump could leave undestroyed.
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
  // A marker that it has met is not dealt with yet.
  const std::size_t marker_size = self.decoder_.unread_marker != 0 ? 2 : 0;
  self.last_progress_ = self.next_offset_ - self.source_.bytes_in_buffer - marker_size;
}

// At the end of the file the library gets an end mark, and makes do with what it has.
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

// Whether anything but a mark stands where the pixels begin.
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

// Damage between two scans of a progressive file loses what follows, not what came before: then the
// file ends for us where the library last got on.
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
  // The smoothing of colour looks at neighbours: with a block more on each side all are there.
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

}  // namespace quorvale
