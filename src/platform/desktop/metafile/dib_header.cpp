#include "platform/desktop/metafile/dib_header.h"

#include <algorithm>

namespace quorvale {
namespace {

constexpr std::size_t kCoreHeader = 12;
constexpr std::size_t kInfoHeader = 40;
constexpr std::int64_t kMostPixels = std::int64_t{64} << 20U;
enum Compression : unsigned { kPlain, kRuns8, kRuns4, kMasks };

// The palette's, or from black to white.
std::vector<QRgb> ColoursWithoutTable(const DibSource& source, std::size_t count) {
  if (source.palette != nullptr && count > 2) return source.palette->colours;
  std::vector<QRgb> colours;
  const std::size_t last = std::max<std::size_t>(count, 2) - 1;
  for (std::size_t i = 0; i < count && i < 256; ++i) {
    const auto level = static_cast<int>(i * 255 / last);
    colours.push_back(qRgb(level, level, level));
  }
  return colours;
}

// Some writers leave the table out, and count on the palette.
bool LacksTable(const DibHeader& header, const DibSource& source, std::size_t at) {
  if (!source.bits.empty() || header.depth > 8 || header.run_length || at > source.info.size()) return false;
  return source.info.size() - at == RowSize(header) * static_cast<std::size_t>(header.height);
}

void ReadColours(DibHeader& header, ByteReader& reader, const DibSource& source, std::size_t count, bool core) {
  const bool numbers = source.table == ColourTable::kPaletteNumbers;
  if (source.table == ColourTable::kNone || LacksTable(header, source, reader.At())) {
    header.colours = ColoursWithoutTable(source, count);
    return;
  }
  const std::size_t size = numbers ? 2 : (core ? 3 : 4);
  count = reader.Capped(count, size);
  header.colours.reserve(std::min<std::size_t>(count, 256));
  for (std::size_t i = 0; i < count; ++i) {
    QRgb colour = 0xFF000000U;
    if (numbers) {
      const std::size_t number = reader.U16();
      if (source.palette != nullptr && number < source.palette->colours.size()) {
        colour = source.palette->colours[number];
      }
    } else {
      colour |= unsigned{reader.U8()} | unsigned{reader.U8()} << 8U;
      colour |= unsigned{reader.U8()} << 16U;
      if (!core) reader.Skip(1);
    }
    if (header.colours.size() < 256) header.colours.push_back(colour);
  }
}

bool IsDepth(int depth) {
  constexpr std::array kDepths{1, 2, 4, 8, 16, 24, 32};
  return std::find(kDepths.begin(), kDepths.end(), depth) != kDepths.end();
}

}  // namespace

DibHeader ReadDibHeader(const DibSource& source) {
  DibHeader header;
  ByteReader reader(source.info);
  const std::size_t size = reader.U32();
  const bool core = size == kCoreHeader;
  if ((!core && size < kInfoHeader) || size > source.info.size()) return header;
  const std::int64_t width = core ? reader.U16() : reader.I32();
  std::int64_t height = core ? reader.I16() : reader.I32();
  reader.Skip(2);
  header.depth = reader.U16();
  header.top_down = height < 0;
  height = std::abs(height);
  if (width <= 0 || height <= 0 || width > 0xFFFF || height > 0xFFFF || width * height > kMostPixels) return header;
  if (!IsDepth(header.depth)) return header;
  header.width = static_cast<int>(width);
  header.height = static_cast<int>(height);

  const unsigned compression = core ? 0U : reader.U32();
  reader.Skip(12);
  std::size_t used = core ? 0 : reader.U32();
  reader.Seek(size);
  header.masks = header.depth == 16 ? std::array{0x7C00U, 0x3E0U, 0x1FU} : std::array{0xFF0000U, 0xFF00U, 0xFFU};
  switch (compression) {
    case kPlain:
      break;
    case kRuns8:
    case kRuns4:
      if (header.depth != (compression == kRuns8 ? 8 : 4) || header.top_down) return header;
      header.run_length = true;
      break;
    case kMasks:
      if (header.depth != 16 && header.depth != 32) return header;
      // Later headers hold the masks themselves, at the same place.
      reader.Seek(kInfoHeader);
      for (unsigned& mask : header.masks) mask = reader.U32();
      if (size > kInfoHeader) reader.Seek(size);
      break;
    default:
      return header;
  }
  if (header.depth <= 8) {
    const std::size_t most = std::size_t{1} << static_cast<unsigned>(header.depth);
    if (used == 0 || used > most) used = most;
  }
  ReadColours(header, reader, source, used, core);
  header.size = std::min(reader.At(), source.info.size());
  header.valid = true;
  return header;
}

}  // namespace quorvale
