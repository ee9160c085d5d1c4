#include "platform/win32/pictures/wic_rows.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quorvale {
namespace {

// What a photo's decoder makes at once; where damage ends the picture, no more than this is lost with it.
constexpr int kBandRows = 16;

}  // namespace

WicRows::WicRows(WicSource source, Side across, Side down, bool opaque)
    : source_(std::move(source)), across_(across), down_(down), opaque_(opaque) {}

bool WicRows::Start(int left, int right, int /*top*/) {
  left_ = left;
  width_ = right - left;
  const auto count = static_cast<std::size_t>(width_) * kBandRows;
  for (Band& band : bands_) band.pixels.resize(count);
  return true;
}

const Pixel* WicRows::Row(int y) {
  const int number = y / kBandRows;
  Band& band = bands_[static_cast<std::size_t>(number % 2)];
  if (band.number != number) Read(band, number);
  return band.is_whole ? band.pixels.data() + std::ptrdiff_t{y % kBandRows} * width_ : nullptr;
}

void WicRows::Read(Band& band, int number) {
  const int top = number * kBandRows;
  const WICRect rows{left_, top, width_, std::min(kBandRows, down_.count - top)};
  const auto stride = static_cast<UINT>(width_) * static_cast<UINT>(sizeof(Pixel));
  const HRESULT result = source_->CopyPixels(&rows, stride, stride * static_cast<UINT>(rows.Height),
                                             reinterpret_cast<BYTE*>(band.pixels.data()));
  band.number = number;
  band.is_whole = SUCCEEDED(result);
}

}  // namespace quorvale
