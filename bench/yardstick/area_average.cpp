#include "yardstick/area_average.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace quorvale {
namespace {

// Where the share of each of `count` pixels in `size` begins, and where the last one ends.
std::vector<int> Edges(int count, int size) {
  std::vector<int> edges;
  for (int i = 0; i <= count; ++i) edges.push_back(static_cast<int>(std::int64_t{i} * size / count));
  return edges;
}

void AddRow(const Pixel* row, std::vector<std::uint32_t>& sums) {
  const auto* const bytes = reinterpret_cast<const std::uint8_t*>(row);
  for (std::size_t i = 0; i < sums.size(); ++i) sums[i] += bytes[i];
}

}  // namespace

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

}  // namespace quorvale
