#include "platform/desktop/metafile/objects.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/desktop/metafile/record_types.h"

namespace quorvale::metafile {
namespace {

// Files number their objects with 16 bits.
constexpr std::size_t kMostObjects = 0x10000;
// A few bytes of a file can make a large pattern, so the patterns of all brushes have a limit together.
constexpr qsizetype kMostPatternBytes = qsizetype{128} << 20U;
// Patterns repeat, so a larger one is cropped. Pixels of a side.
constexpr int kLargestPattern = 512;
// Higher numbers are historical shades, drawn solid.
constexpr unsigned kHatchCount = 6;
constexpr unsigned kStyleMask = 0xF;

enum StockObjectNumber : unsigned {
  WHITE_BRUSH,
  LTGRAY_BRUSH,
  GRAY_BRUSH,
  DKGRAY_BRUSH,
  BLACK_BRUSH,
  NULL_BRUSH,
  WHITE_PEN,
  BLACK_PEN,
  NULL_PEN,
  OEM_FIXED_FONT = 10,
  DEFAULT_PALETTE = 15,
  DEFAULT_GUI_FONT = 17,
  DC_BRUSH,
  DC_PEN,
};

qsizetype PatternBytes(const GdiObject& object) {
  const auto* brush = std::get_if<Brush>(&object);
  return brush == nullptr ? 0 : brush->pattern.sizeInBytes();
}

Font StockFont() {
  Font font;
  font.height = 16;
  return font;
}

// PALETTEENTRY.
QRgb ReadColour(ByteReader& reader) {
  const int red = reader.U8();
  const int green = reader.U8();
  const int blue = reader.U8();
  reader.Skip(1);
  return qRgb(red, green, blue);
}

}  // namespace

GdiObject StockObject(unsigned number) {
  constexpr std::array<ColourReference, 5> kGreys{0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0};
  switch (number) {
    case WHITE_BRUSH:
    case LTGRAY_BRUSH:
    case GRAY_BRUSH:
    case DKGRAY_BRUSH:
    case BLACK_BRUSH:
      return Brush{.colour = kGreys[number]};
    case NULL_BRUSH:
      return Brush{.style = Brush::Style::kNone};
    case WHITE_PEN:
      return Pen{.brush = {.colour = 0xFFFFFF}};
    case BLACK_PEN:
    case DC_PEN:
      return Pen{};
    case NULL_PEN:
      return Pen{.style = PS_NULL};
    case DC_BRUSH:
      return Brush{};
    default: {
      const bool font = number >= OEM_FIXED_FONT && number <= DEFAULT_GUI_FONT && number != DEFAULT_PALETTE;
      return font ? GdiObject(StockFont()) : GdiObject();
    }
  }
}

void ObjectTable::Add(GdiObject object) {
  const auto free = std::find_if(slots_.begin(), slots_.end(), [](const Slot& slot) { return !slot.used; });
  Set(static_cast<std::uint32_t>(free - slots_.begin()), std::move(object));
}

void ObjectTable::Set(std::uint32_t index, GdiObject object) {
  if (index >= kMostObjects) return;
  if (index >= slots_.size()) slots_.resize(index + 1);
  if (qsizetype bytes = PatternBytes(object); bytes > 0) {
    for (const Slot& slot : slots_) bytes += PatternBytes(slot.object);
    if (bytes > kMostPatternBytes) object = Brush{.style = Brush::Style::kNone};
  }
  slots_[index] = {true, std::move(object)};
}

void ObjectTable::Remove(std::uint32_t index) {
  if (index < slots_.size()) slots_[index] = {};
}

const GdiObject& ObjectTable::Get(std::uint32_t index) const {
  static const GdiObject kNothing;
  return index < slots_.size() ? slots_[index].object : kNothing;
}

Brush BrushOf(const GdiObject& object) {
  const auto* brush = std::get_if<Brush>(&object);
  return brush == nullptr ? Brush{.style = Brush::Style::kNone} : *brush;
}

Pen MakeSimplePen(unsigned style, double width, ColourReference colour) {
  Pen pen;
  pen.style = style & kStyleMask;
  pen.cap = style >> 8U & kStyleMask;
  pen.join = style >> 12U & kStyleMask;
  pen.width = std::abs(width);
  pen.brush.colour = colour;
  return pen;
}

Brush MakeSimpleBrush(unsigned style, ColourReference colour, unsigned hatch) {
  Brush brush;
  brush.colour = colour;
  if (style == BS_NULL) {
    brush.style = Brush::Style::kNone;
  } else if (style == BS_HATCHED && hatch < kHatchCount) {
    brush.style = Brush::Style::kHatch;
    brush.hatch = hatch;
  }
  return brush;
}

Brush MakePatternBrush(const QImage& image, bool two_colours) {
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
  // lfOutPrecision, lfClipPrecision, lfQuality.
  reader.Skip(3);
  enum : unsigned { FIXED_PITCH = 1, FF_ROMAN = 1, FF_MODERN = 3 };
  const unsigned pitch_and_family = reader.U8();
  const unsigned family = pitch_and_family >> 4U;
  if (family == FF_MODERN || (pitch_and_family & 3U) == FIXED_PITCH) {
    font.stand_in = QStringLiteral("Courier New");
  } else if (family == FF_ROMAN) {
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

}  // namespace quorvale::metafile
