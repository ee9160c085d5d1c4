#include "platform/pictures/row_scaler.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace quorvale {
namespace {

// Parts of a pixel below this are rounding errors.
constexpr double kNothing = 1e-4;

// The stretch of the source that a pixel is the mean of. That is what it covers or, in a picture that grows, the length
// of one source pixel around its centre, which interpolates linearly.
struct Stretch {
  Stretch(int pixel, double ratio, int size) {
    const double half = std::max(ratio, 1.0) / 2;
    const double centre = (pixel + 0.5) * ratio;
    from = std::clamp(centre - half, 0.0, size - 2 * kNothing);
    to = std::clamp(centre + half, from + 2 * kNothing, static_cast<double>(size));
    first = static_cast<int>(from + kNothing);
    end = std::max(first + 1, static_cast<int>(std::ceil(to - kNothing)));
  }

  double Share(int pixel) const {
    const double covered = std::min(pixel + 1.0, to) - std::max<double>(pixel, from);
    return pixel < end ? std::max(0.0, covered) / (to - from) : 0;
  }

  double from = 0;
  double to = 0;
  int first = 0;
  int end = 0;
};

// The loops below are written so that compilers vectorise them for any processor.
constexpr std::size_t kChannels = 4;

const std::uint8_t* Channels(const Pixel* row) { return reinterpret_cast<const std::uint8_t*>(row); }

void MixTwo(const Pixel* one, float one_weight, const Pixel* two, float two_weight, std::span<float> mix) {
  const std::uint8_t* a = Channels(one);
  const std::uint8_t* b = Channels(two);
  float* to = mix.data();
  for (std::size_t i = 0; i < mix.size(); ++i) {
    to[i] = static_cast<float>(a[i]) * one_weight + static_cast<float>(b[i]) * two_weight;
  }
}

void AddTwo(const Pixel* one, float one_weight, const Pixel* two, float two_weight, std::span<float> mix) {
  const std::uint8_t* a = Channels(one);
  const std::uint8_t* b = Channels(two);
  float* to = mix.data();
  for (std::size_t i = 0; i < mix.size(); ++i) {
    to[i] += static_cast<float>(a[i]) * one_weight + static_cast<float>(b[i]) * two_weight;
  }
}

// Mixes the source rows of one scaled row. False if the source ends.
bool MixRows(RowSource& source, int first, std::span<const float> weights, std::span<float> mix) {
  for (std::size_t i = 0; i < weights.size() && weights[i] > 0; i += 2) {
    const int y = first + static_cast<int>(i);
    const bool pair = i + 1 < weights.size() && weights[i + 1] > 0;
    const Pixel* one = source.Row(y);
    const Pixel* two = pair ? source.Row(y + 1) : one;
    if (one == nullptr || two == nullptr) return false;
    (i == 0 ? MixTwo : AddTwo)(one, weights[i], two, pair ? weights[i + 1] : 0, mix);
  }
  return true;
}

// `kTaps` is the number of weights if it is known when compiling, else 0.
template <std::size_t kTaps>
void MixColumns(const ScaleAxis& across, const float* mix, float* scaled) {
  for (int x = 0; x < across.Count(); ++x, scaled += kChannels) {
    const std::span<const float> weights = across.Weights(x);
    const std::size_t taps = kTaps > 0 ? kTaps : weights.size();
    const float* from = mix + static_cast<std::size_t>(across.First(x) - across.Begin()) * kChannels;
    // Starts at a half, so that the later cut rounds.
    float sum[kChannels] = {0.5F, 0.5F, 0.5F, 0.5F};
    for (std::size_t tap = 0; tap < taps; ++tap) {
      for (std::size_t c = 0; c < kChannels; ++c) sum[c] += from[tap * kChannels + c] * weights[tap];
    }
    std::copy_n(sum, kChannels, scaled);
  }
}

void MixColumns(const ScaleAxis& across, const float* mix, float* scaled) {
  switch (across.Weights(0).size()) {
    case 1:
      return MixColumns<1>(across, mix, scaled);
    case 2:
      return MixColumns<2>(across, mix, scaled);
    case 3:
      return MixColumns<3>(across, mix, scaled);
    case 4:
      return MixColumns<4>(across, mix, scaled);
    default:
      return MixColumns<0>(across, mix, scaled);
  }
}

void Cut(const std::vector<float>& scaled, std::vector<Pixel>& row) {
  auto* to = reinterpret_cast<std::uint8_t*>(row.data());
  for (std::size_t i = 0; i < scaled.size(); ++i) to[i] = static_cast<std::uint8_t>(static_cast<int>(scaled[i]));
}

}  // namespace

ScaleAxis::ScaleAxis(int total, int first, int count, double length, int size) : begin_(size) {
  const double ratio = length / total;
  first_.reserve(static_cast<std::size_t>(count));
  int most = 1;
  for (int i = 0; i < count; ++i) {
    const Stretch stretch(first + i, ratio, size);
    first_.push_back(stretch.first);
    begin_ = std::min(begin_, stretch.first);
    end_ = std::max(end_, stretch.end);
    most = std::max(most, stretch.end - stretch.first);
  }
  stride_ = static_cast<std::size_t>(most);
  weights_.reserve(stride_ * first_.size());
  for (int i = 0; i < count; ++i) {
    const Stretch stretch(first + i, ratio, size);
    for (int k = 0; k < most; ++k) weights_.push_back(static_cast<float>(stretch.Share(stretch.first + k)));
  }
  is_copy_ = length == total;
}

void ScaleRows(RowSource& source, const ScaleAxis& across, const ScaleAxis& down,
               const std::function<void(const Pixel* row, int y)>& place) {
  if (across.IsCopy() && down.IsCopy()) {
    for (int y = 0; y < down.Count(); ++y) {
      const Pixel* row = source.Row(down.First(y));
      if (row == nullptr) return;
      place(row, y);
    }
    return;
  }
  // Room for weights of 0 beyond the last column.
  const std::size_t columns = static_cast<std::size_t>(across.End() - across.Begin()) * kChannels;
  std::vector<float> mix(columns + across.Weights(0).size() * kChannels);
  std::vector<float> scaled(static_cast<std::size_t>(across.Count()) * kChannels);
  std::vector<Pixel> row(static_cast<std::size_t>(across.Count()));
  for (int y = 0; y < down.Count(); ++y) {
    if (!MixRows(source, down.First(y), down.Weights(y), std::span(mix).first(columns))) return;
    MixColumns(across, mix.data(), scaled.data());
    Cut(scaled, row);
    place(row.data(), y);
  }
}

}  // namespace quorvale
