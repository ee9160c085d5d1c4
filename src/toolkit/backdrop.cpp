#include "toolkit/backdrop.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace quorvale {
namespace {

// The copy is reduced to this many cells along its longer side, so that a cell covers several dozen pixels of a screen
// and no detail is left. Reading the picture costs most, and a few rows for each cell are enough.
constexpr int kCells = 32;
constexpr int kRowsToCell = 4;
constexpr int kSmoothings = 2;

// A picture of a few cells.
struct Cells {
  Cells(int columns, int rows)
      : width(columns), height(rows), pixels(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows)) {}

  Pixel* Row(int y) { return pixels.data() + static_cast<std::ptrdiff_t>(y) * width; }
  Pixel At(int x, int y) const {
    const int inside_x = std::clamp(x, 0, width - 1);
    const int inside_y = std::clamp(y, 0, height - 1);
    return pixels[static_cast<std::size_t>(inside_y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(inside_x)];
  }

  int width;
  int height;
  std::vector<Pixel> pixels;
};

// Channels are mixed two at a time: red and blue, and green.
constexpr Pixel kRedBlue = 0x00FF00FFU;
constexpr Pixel kGreen = 0x0000FF00U;
constexpr Pixel kOpaque = 0xFF000000U;

// Blends: `share`, 0 to 256, of `b`, and the rest of `a`.
Pixel Mix(Pixel a, Pixel b, Pixel share) {
  const Pixel rest = 256U - share;
  const Pixel red_blue = ((a & kRedBlue) * rest + (b & kRedBlue) * share) >> 8U & kRedBlue;
  const Pixel green = ((a & kGreen) * rest + (b & kGreen) * share) >> 8U & kGreen;
  return kOpaque | red_blue | green;
}

// The mean of the pixels of one cell. Its sides are not 0.
Pixel Mean(const PixelView& target, const PixelRect& cell) {
  std::array<std::uint64_t, 3> sums{};
  std::uint64_t count = 0;
  const int step = std::max(1, cell.height / kRowsToCell);
  for (int y = cell.top + step / 2; y < cell.Bottom(); y += step) {
    const Pixel* row = target.Row(y);
    // Fits 32 bits for any row shorter than 16 million pixels.
    Pixel red = 0;
    Pixel green = 0;
    Pixel blue = 0;
    for (int x = cell.left; x < cell.Right(); ++x) {
      red += row[x] >> 16U & 0xFFU;
      green += row[x] >> 8U & 0xFFU;
      blue += row[x] & 0xFFU;
    }
    sums[0] += red;
    sums[1] += green;
    sums[2] += blue;
    count += static_cast<std::uint64_t>(cell.width);
  }
  const auto mean = [count](std::uint64_t sum) { return static_cast<Pixel>((sum + count / 2) / count); };
  return kOpaque | mean(sums[0]) << 16U | mean(sums[1]) << 8U | mean(sums[2]);
}

// The picture in cells that are about square.
Cells Reduce(const PixelView& target, const PixelRect& picture) {
  const int longer = std::max(picture.width, picture.height);
  const auto count = [longer](int side) { return std::max(1, side * std::min(kCells, longer) / longer); };
  Cells cells(count(picture.width), count(picture.height));
  const auto edge = [](int i, int cells_in_side, int side) { return i * side / cells_in_side; };
  for (int y = 0; y < cells.height; ++y) {
    const int top = edge(y, cells.height, picture.height);
    const int bottom = edge(y + 1, cells.height, picture.height);
    for (int x = 0; x < cells.width; ++x) {
      const int left = edge(x, cells.width, picture.width);
      const int right = edge(x + 1, cells.width, picture.width);
      cells.Row(y)[x] = Mean(target, {picture.left + left, picture.top + top, right - left, bottom - top});
    }
  }
  return cells;
}

// Mixes each cell with its neighbours, which hides the edges of cells.
Cells Smooth(const Cells& from) {
  constexpr Pixel kHalf = 128;
  Cells across(from.width, from.height);
  Cells both(from.width, from.height);
  for (int y = 0; y < from.height; ++y) {
    for (int x = 0; x < from.width; ++x)
      across.Row(y)[x] = Mix(from.At(x, y), Mix(from.At(x - 1, y), from.At(x + 1, y), kHalf), kHalf);
  }
  for (int y = 0; y < from.height; ++y) {
    for (int x = 0; x < from.width; ++x)
      both.Row(y)[x] = Mix(across.At(x, y), Mix(across.At(x, y - 1), across.At(x, y + 1), kHalf), kHalf);
  }
  return both;
}

// Where the pixels along a side lie between the cells: `first` and a share of the cell behind it.
struct Between {
  int first;
  Pixel share;
};

// For a side of `count` pixels, of which `cells` cells cover `covered`, evenly cut.
std::vector<Between> Places(int count, double covered, int cells) {
  std::vector<Between> places;
  places.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    const double place = ((i + 0.5 - count / 2.0) / covered + 0.5) * cells - 0.5;
    const double inside = std::clamp(place, 0.0, cells - 1.0);
    const int first = static_cast<int>(inside);
    places.push_back({first, static_cast<Pixel>((inside - first) * 256)});
  }
  return places;
}

}  // namespace

void PaintBackdrop(const PixelView& target, const PixelRect& picture, const PixelRect& area) {
  Cells cells = Reduce(target, picture);
  for (int i = 0; i < kSmoothings; ++i) cells = Smooth(cells);
  const double growth =
      std::max(static_cast<double>(area.width) / picture.width, static_cast<double>(area.height) / picture.height);
  const std::vector<Between> across = Places(area.width, picture.width * growth, cells.width);
  const std::vector<Between> down = Places(area.height, picture.height * growth, cells.height);
  const PixelRect kept = Intersect(picture, area);
  const auto is_beside = [&kept](int y) { return y >= kept.top && y < kept.Bottom(); };
  std::vector<Pixel> line(static_cast<std::size_t>(cells.width) + 1);
  for (int y = area.top; y < area.Bottom(); ++y) {
    const Between& at = down[static_cast<std::size_t>(y - area.top)];
    for (int x = 0; x <= cells.width; ++x)
      line[static_cast<std::size_t>(x)] = Mix(cells.At(x, at.first), cells.At(x, at.first + 1), at.share);
    const bool beside = is_beside(y);
    // Every other row repeats the one above, which nobody sees in so soft a picture.
    const bool repeats = (y - area.top) % 2 == 1 && beside == is_beside(y - 1);
    const auto fill = [&](int from, int to) {
      if (repeats) {
        std::copy(target.Row(y - 1) + from, target.Row(y - 1) + to, target.Row(y) + from);
        return;
      }
      for (int x = from; x < to; ++x) {
        const Between& place = across[static_cast<std::size_t>(x - area.left)];
        const Pixel* cell = line.data() + place.first;
        target.Row(y)[x] = Mix(cell[0], cell[1], place.share);
      }
    };
    fill(area.left, beside ? kept.left : area.Right());
    if (beside) fill(kept.Right(), area.Right());
  }
}

}  // namespace quorvale
