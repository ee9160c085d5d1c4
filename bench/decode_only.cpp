#include "decode_only.h"

#include <vector>

#include "yardstick/jpeg_rows.h"

namespace quorvale {

void DecodeOnly(const std::string& path, int divisor) {
  JpegRows jpeg(path);
  jpeg.Start(divisor);
  std::vector<Pixel> row(static_cast<std::size_t>(jpeg.Width()));
  for (int y = 0; y < jpeg.Height(); ++y) jpeg.Read(row.data());
}

}  // namespace quorvale
