#include "yardstick/yardstick.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "yardstick/area_average.h"
#include "yardstick/jpeg_rows.h"

namespace quorvale {
namespace {

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
