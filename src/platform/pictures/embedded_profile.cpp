#include "platform/pictures/embedded_profile.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "platform/pictures/row_source.h"

namespace quorvale {
namespace {

// A segment of a JPEG file begins with marker and length; the length counts itself.
constexpr std::uint8_t kMarker = 0xFF;
constexpr std::uint8_t kApp2 = 0xE2;
constexpr std::uint8_t kStartOfScan = 0xDA;
// A profile has up to 255 pieces, and other data may stand between them.
constexpr int kMostSegments = 512;
// The signature ends in a zero; the number of the piece, from 1, and the count of pieces follow.
constexpr std::array<std::uint8_t, 12> kSignature{'I', 'C', 'C', '_', 'P', 'R', 'O', 'F', 'I', 'L', 'E', 0};
constexpr std::size_t kPieceHead = kSignature.size() + 2;

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
  std::size_t offset = 2;
  int last_piece = 0;
  for (int segment = 0; segment < kMostSegments; ++segment) {
    std::array<std::uint8_t, 4 + kPieceHead> head{};
    const bool is_whole = bytes.Copy(offset, head);
    if (head[0] != kMarker || head[1] == kStartOfScan || !is_whole) break;
    if (head[1] == kMarker) {  // Any number of these may fill up before a marker.
      ++offset;
      continue;
    }
    const std::size_t length = std::size_t{head[2]} << 8U | head[3];
    if (length < 2) break;
    if (head[1] == kApp2 && length >= 2 + kPieceHead &&
        std::equal(kSignature.begin(), kSignature.end(), std::next(head.begin(), 4))) {
      // Every program writes the pieces in their order.
      const int piece = head[4 + kSignature.size()];
      const std::size_t count = length - 2 - kPieceHead;
      if (piece != last_piece + 1 || profile.size() + count > kLongestProfile) return {};
      last_piece = piece;
      profile.resize(profile.size() + count);
      if (!bytes.Copy(offset + head.size(), std::span(profile).last(count))) return {};
      if (piece == head[5 + kSignature.size()]) return profile;
    }
    offset += 2 + length;
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
