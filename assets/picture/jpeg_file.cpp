#include "picture/jpeg_file.h"

// jpeglib.h uses FILE and size_t and includes neither.
#include <jpeglib.h>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace quorvale::samples {
namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

class Compressor {
 public:
  Compressor() {
    // Its way with an error, to say so and to end the program, is just right here.
    info_.err = jpeg_std_error(&errors_);
    jpeg_create_compress(&info_);
  }
  ~Compressor() { jpeg_destroy_compress(&info_); }
  Compressor(const Compressor&) = delete;
  Compressor& operator=(const Compressor&) = delete;

  jpeg_compress_struct* operator->() { return &info_; }
  jpeg_compress_struct* Get() { return &info_; }

 private:
  jpeg_compress_struct info_ = {};
  jpeg_error_mgr errors_ = {};
};

}  // namespace

void WriteJpeg(const std::string& path, int width, int height, const std::vector<std::uint8_t>& rgb, int quality) {
  const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "wb"));
  if (!file) throw std::runtime_error("can't write " + path);
  Compressor compressor;
  jpeg_stdio_dest(compressor.Get(), file.get());
  compressor->image_width = static_cast<JDIMENSION>(width);
  compressor->image_height = static_cast<JDIMENSION>(height);
  compressor->input_components = 3;
  compressor->in_color_space = JCS_RGB;
  jpeg_set_defaults(compressor.Get());
  jpeg_set_quality(compressor.Get(), quality, TRUE);
  jpeg_start_compress(compressor.Get(), TRUE);
  const std::size_t row_bytes = static_cast<std::size_t>(width) * 3;
  while (compressor->next_scanline < compressor->image_height) {
    // The library takes rows as writable and only reads them.
    auto* row = const_cast<JSAMPROW>(rgb.data() + compressor->next_scanline * row_bytes);
    jpeg_write_scanlines(compressor.Get(), &row, 1);
  }
  jpeg_finish_compress(compressor.Get());
}

}  // namespace quorvale::samples
