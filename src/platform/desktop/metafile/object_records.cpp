#include "platform/desktop/metafile/object_records.h"

namespace quorvale {
namespace {

constexpr unsigned kStyleMask = 0xF;
// Hatches that stand for shades and so on: drawn as areas.
constexpr unsigned kHatchCount = 6;
// Pixels of a pattern's sides: it repeats anyway.
constexpr int kLargestPattern = 512;

QRgb ReadColour(ByteReader& reader) {
  const int red = reader.U8();
  const int green = reader.U8();
  const int blue = reader.U8();
  reader.Skip(1);
  return qRgb(red, green, blue);
}

}  // namespace

Pen SimplePen(unsigned style, double width, ColourReference colour) {
  Pen pen;
  pen.style = style & kStyleMask;
  pen.cap = style >> 8U & kStyleMask;
  pen.join = style >> 12U & kStyleMask;
  pen.width = std::abs(width);
  pen.brush.colour = colour;
  return pen;
}

Brush SimpleBrush(unsigned style, ColourReference colour, unsigned hatch) {
  Brush brush;
  brush.colour = colour;
  if (style == 1) {
    brush.style = Brush::Style::kNone;
  } else if (style == 2 && hatch < kHatchCount) {
    brush.style = Brush::Style::kHatch;
    brush.hatch = hatch;
  }
  return brush;
}

Brush PatternBrush(const QImage& image, bool two_colours) {
  Brush brush;
  brush.style = image.isNull() ? Brush::Style::kNone : Brush::Style::kPattern;
  brush.pattern = image.copy(image.rect() & QRect(0, 0, kLargestPattern, kLargestPattern));
  brush.two_colours = two_colours;
  return brush;
}

void ReadFontFlags(Font& font, ByteReader& reader) {
  font.italic = reader.U8() != 0;
  font.underline = reader.U8() != 0;
  font.strike_out = reader.U8() != 0;
  font.charset = reader.U8();
  reader.Skip(3);
  enum : unsigned { kFixedPitch = 1, kRoman = 1, kModern = 3 };
  const unsigned pitch_and_kind = reader.U8();
  const unsigned kind = pitch_and_kind >> 4U;
  if (kind == kModern || (pitch_and_kind & 3U) == kFixedPitch) {
    font.stand_in = QStringLiteral("Courier New");
  } else if (kind == kRoman) {
    font.stand_in = QStringLiteral("Times New Roman");
  }
}

std::shared_ptr<const Palette> ReadPalette(ByteReader& reader, std::size_t count) {
  Palette palette;
  count = reader.Capped(count, 4);
  for (std::size_t i = 0; i < count; ++i) palette.colours.push_back(ReadColour(reader));
  return std::make_shared<const Palette>(std::move(palette));
}

std::shared_ptr<const Palette> ChangedPalette(const Palette& palette, std::size_t start, ByteReader& reader,
                                              std::size_t count) {
  Palette changed = palette;
  for (std::size_t i = start; i < start + count && i < changed.colours.size() && reader.Left() >= 4; ++i) {
    changed.colours[i] = ReadColour(reader);
  }
  return std::make_shared<const Palette>(std::move(changed));
}

void UsePalette(const Playback& playback, const GdiObject& object) {
  if (const auto* palette = std::get_if<std::shared_ptr<const Palette>>(&object)) {
    playback.canvas.State().palette = *palette;
  }
}

}  // namespace quorvale
