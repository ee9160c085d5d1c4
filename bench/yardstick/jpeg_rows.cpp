#include "yardstick/jpeg_rows.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include "base/failure.h"
#include "platform/desktop/system/file_descriptor.h"

namespace quorvale {

JpegRows::JpegRows(const std::string& path) {
  const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  struct stat status {};
  if (fstat(file.Get(), &status) == 0 && status.st_size > 0) {
    size_ = static_cast<std::size_t>(status.st_size);
    bytes_ = mmap(nullptr, size_, PROT_READ, MAP_PRIVATE | MAP_POPULATE, file.Get(), 0);
  }
  if (bytes_ == nullptr || bytes_ == MAP_FAILED) throw Failure(FailureNumber::kUnreadable, path, "bench");
  decoder_.err = jpeg_std_error(&errors_);
  jpeg_create_decompress(&decoder_);
  jpeg_mem_src(&decoder_, static_cast<unsigned char*>(bytes_), size_);
  jpeg_read_header(&decoder_, TRUE);
}

JpegRows::~JpegRows() {
  jpeg_destroy_decompress(&decoder_);
  munmap(bytes_, size_);
}

void JpegRows::Start(int divisor) {
  decoder_.scale_num = 1;
  decoder_.scale_denom = static_cast<unsigned>(divisor);
  decoder_.out_color_space = JCS_EXT_BGRX;
  jpeg_start_decompress(&decoder_);
}

void JpegRows::Read(Pixel* row) {
  auto* samples = reinterpret_cast<JSAMPROW>(row);
  jpeg_read_scanlines(&decoder_, &samples, 1);
}

void DecodeOnly(const std::string& path, int divisor) {
  JpegRows jpeg(path);
  jpeg.Start(divisor);
  std::vector<Pixel> row(static_cast<std::size_t>(jpeg.Width()));
  for (int y = 0; y < jpeg.Height(); ++y) jpeg.Read(row.data());
}

int NearestDivisor(int width, int height, int least_width, int least_height) {
  const auto holds = [](int size, int divisor, int least) { return (size + divisor - 1) / divisor >= least; };
  int divisor = 8;
  while (divisor > 1 && !(holds(width, divisor, least_width) && holds(height, divisor, least_height))) divisor /= 2;
  return divisor;
}

}  // namespace quorvale
