#pragma once

#include <array>
#include <csetjmp>
#include <cstddef>
#include <cstdint>
#include <cstdio>  // jpeglib.h needs it
#include <vector>

#include <jpeglib.h>

#include "platform/desktop/pictures/picture_file.h"
#include "toolkit/pixel_view.h"

namespace quorvale {

// Decodes a JPEG file row by row. The library's way of failing, a long jump, stays inside: here the
// calls give false, and the decoder is of no use after that.
class JpegDecoder {
 public:
  explicit JpegDecoder(PictureFile& file);
  ~JpegDecoder();
  JpegDecoder(const JpegDecoder&) = delete;
  JpegDecoder& operator=(const JpegDecoder&) = delete;

  // False as well for a file that holds next to no pixels for the size it claims.
  bool ReadHeader();

  // After `ReadHeader`: the size of the whole picture.
  int Width() const { return static_cast<int>(decoder_.image_width); }
  int Height() const { return static_cast<int>(decoder_.image_height); }
  // The same at a scale of `eighths`/8, 1 to 8.
  int ScaledWidth(int eighths) const { return Scaled(Width(), eighths); }
  int ScaledHeight(int eighths) const { return Scaled(Height(), eighths); }
  // What a picture that comes in several scans takes before its first row.
  std::size_t Memory() const;

  // Goes to the row `top` of the picture at that scale. Rows will hold the columns from `left` to
  // `right`, the same pixels as if the whole picture were decoded.
  bool Start(int eighths, int left, int right, int top);

  // The next row, in memory of the decoder's that lasts until the next but one call; null when damage
  // ends the picture here.
  const Pixel* NextRow();

 private:
  // What the library calls back.
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
  bool ReadRow(Pixel* row);
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

}  // namespace quorvale
