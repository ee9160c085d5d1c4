#include "platform/pictures/embedded_profile.h"

#include <algorithm>
#include <array>

#include "platform/pictures/jpeg_segments.h"
#include "platform/pictures/row_source.h"

namespace quorvale {
namespace {

// A profile has up to 255 pieces, and other data may stand between them.
constexpr int kMostProfileSegments = 512;
// The signature ends in a zero; the number of the piece, from 1, and the count of pieces follow.
constexpr std::array<std::uint8_t, 12> kProfileSignature{'I', 'C', 'C', '_', 'P', 'R', 'O', 'F', 'I', 'L', 'E', 0};
constexpr std::size_t kPieceHead = kProfileSignature.size() + 2;

Pixel Divided(Pixel level, Pixel alpha) { return std::min<Pixel>((level * 255U + alpha / 2) / alpha, 255U); }

// Undoes `Premultiplied`.
Pixel Unmultiplied(Pixel pixel) {
  const Pixel alpha = pixel >> 24U;
  if (alpha == 0 || alpha == 255U) return pixel;
  const auto channel = [&](unsigned shift) { return Divided(pixel >> shift & 0xFFU, alpha) << shift; };
  return alpha << 24U | channel(16) | channel(8) | channel(0);
}

}  // namespace

std::vector<std::uint8_t> JpegProfile(ByteSource& bytes) {
  std::vector<std::uint8_t> profile;
  int last_piece = 0;
  JpegSegments segments(bytes, kMostProfileSegments);
  while (const auto segment = segments.Next()) {
    std::array<std::uint8_t, kPieceHead> head{};
    if (segment->kind != kJpegApp2 || segment->size < head.size()) continue;
    if (!bytes.Copy(segment->offset, head)) break;
    if (!std::equal(kProfileSignature.begin(), kProfileSignature.end(), head.begin())) continue;
    // Every program writes the pieces in their order.
    const int piece = head[kProfileSignature.size()];
    const std::size_t count = segment->size - head.size();
    if (piece != last_piece + 1 || profile.size() + count > kLongestProfile) return {};
    last_piece = piece;
    profile.resize(profile.size() + count);
    if (!bytes.Copy(segment->offset + head.size(), std::span(profile).last(count))) return {};
    if (piece == head.back()) return profile;
  }
  return {};
}

void ConvertUnmultiplied(std::span<Pixel> row, const ColourConversion& convert) {
  const bool is_opaque = std::ranges::all_of(row, [](Pixel pixel) { return pixel >> 24U == 255U; });
  if (is_opaque) return convert(row);
  std::vector<Pixel> alpha(row.begin(), row.end());
  std::ranges::transform(row, row.begin(), Unmultiplied);
  convert(row);
  std::ranges::transform(row, alpha, row.begin(),
                         [](Pixel pixel, Pixel old) { return Premultiplied(pixel, old >> 24U); });
}

}  // namespace quorvale
