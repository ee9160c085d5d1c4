#include "yardstick/yardstick.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "base/failure.h"
#include "platform/desktop/system/files.h"

namespace quorvale {
namespace {

// Divides `size` into `count` parts: the start of each, and the end of the last.
std::vector<int> Edges(int count, int size) {
  std::vector<int> edges;
  for (int i = 0; i <= count; ++i) edges.push_back(static_cast<int>(std::int64_t{i} * size / count));
  return edges;
}

void AddRow(const Pixel* row, std::vector<std::uint32_t>& sums) {
  const auto* const bytes = reinterpret_cast<const std::uint8_t*>(row);
  for (std::size_t i = 0; i < sums.size(); ++i) sums[i] += bytes[i];
}

// Shrinks a picture of that size, no smaller than `target` on either side, to `target`: each pixel becomes the mean of
// those it stands for. `next_row` gives the rows from the top down.
void AreaAverage(int width, int height, const std::function<const Pixel*()>& next_row, const PixelView& target) {
  const std::vector<int> rows = Edges(target.height, height);
  const std::vector<int> columns = Edges(target.width, width);
  std::vector<std::uint32_t> sums(static_cast<std::size_t>(width) * 4);
  for (int y = 0; y < target.height; ++y) {
    const int row_count = rows[y + 1] - rows[y];
    std::fill(sums.begin(), sums.end(), 0U);
    for (int i = 0; i < row_count; ++i) AddRow(next_row(), sums);
    Pixel* const row = target.Row(y);
    for (int x = 0; x < target.width; ++x) {
      std::uint32_t blue = 0;
      std::uint32_t green = 0;
      std::uint32_t red = 0;
      const std::uint32_t* sum = sums.data() + std::ptrdiff_t{columns[x]} * 4;
      for (int i = columns[x]; i < columns[x + 1]; ++i, sum += 4) {
        blue += sum[0];
        green += sum[1];
        red += sum[2];
      }
      const auto count = static_cast<std::uint32_t>((columns[x + 1] - columns[x]) * row_count);
      row[x] = blue / count | (green / count) << 8U | (red / count) << 16U;
    }
  }
}

// The part of `screen` that a picture of that size fills.
PixelView PartFor(const JpegRows& jpeg, Fit fit, const PixelView& screen) {
  if (fit == Fit::kStretched) return screen;
  const double scale = std::min(static_cast<double>(screen.width) / jpeg.FullWidth(),
                                static_cast<double>(screen.height) / jpeg.FullHeight());
  PixelView part = screen;
  part.width = static_cast<int>(std::lround(jpeg.FullWidth() * scale));
  part.height = static_cast<int>(std::lround(jpeg.FullHeight() * scale));
  part.pixels = screen.Row((screen.height - part.height) / 2) + (screen.width - part.width) / 2;
  return part;
}

}  // namespace

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

void ShowByYardstick(const std::string& path, Fit fit, SharedWindow& window) {
  const PixelView screen = window.Pixels();
  JpegRows jpeg(path);
  const PixelView part = PartFor(jpeg, fit, screen);
  if (part.pixels != screen.pixels) std::fill_n(screen.pixels, screen.stride * screen.height, Pixel{0});
  jpeg.Start(NearestDivisor(jpeg.FullWidth(), jpeg.FullHeight(), part.width, part.height));
  if (jpeg.Width() == part.width && jpeg.Height() == part.height) {
    for (int y = 0; y < part.height; ++y) jpeg.Read(part.Row(y));
  } else {
    std::vector<Pixel> row(static_cast<std::size_t>(jpeg.Width()));
    const auto next_row = [&] {
      jpeg.Read(row.data());
      return row.data();
    };
    AreaAverage(jpeg.Width(), jpeg.Height(), next_row, part);
  }
  window.Put();
}

}  // namespace quorvale
