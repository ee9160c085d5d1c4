#include "platform/pictures/row_scaler.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace quorvale {
namespace {

// The loops below are written so that they become vector code without the help of any one processor.
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

// The rows of one scaled row into one. False where the source ends.
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

// `kTaps` is the number of weights where it is known beforehand, or 0.
template <std::size_t kTaps>
void MixColumns(const ScaleAxis& across, const float* mix, float* scaled) {
  for (int x = 0; x < across.Count(); ++x, scaled += kChannels) {
    const std::span<const float> weights = across.Weights(x);
    const std::size_t taps = kTaps > 0 ? kTaps : weights.size();
    const float* from = mix + static_cast<std::size_t>(across.First(x) - across.Begin()) * kChannels;
    // Half a step more, since the result is cut to whole steps.
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
  // Weights that are 0 reach beyond the columns that there are.
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
