#pragma once

#include <QImage>
#include <QRectF>
#include <QString>
#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

#include "base/byte_reader.h"

namespace quorvale::metafile {

// COLORREF: 0x00BBGGRR, or 0x0100nnnn for entry n of the selected palette.
using ColourReference = std::uint32_t;

struct Palette {
  std::vector<QRgb> colours;
};

struct Brush {
  enum class Style { kNone, kSolid, kHatch, kPattern };
  Style style = Style::kSolid;
  ColourReference colour = 0xFFFFFF;
  // HS_HORIZONTAL, HS_VERTICAL, HS_FDIAGONAL, HS_BDIAGONAL, HS_CROSS, HS_DIAGCROSS.
  unsigned hatch = 0;
  QImage pattern{};
  // The pattern is monochrome: 0 takes the text colour and 1 the background colour at the time of drawing.
  bool two_colours = false;
};

enum PenStyle : unsigned {
  PS_SOLID,
  PS_DASH,
  PS_DOT,
  PS_DASHDOT,
  PS_DASHDOTDOT,
  PS_NULL,
  PS_INSIDEFRAME,
  PS_USERSTYLE,
  PS_ALTERNATE,
  PS_GEOMETRIC = 0x10000,
};

struct Pen {
  // Without its flags.
  unsigned style = PS_SOLID;
  // In logical units if geometric or simple, otherwise in pixels. Drawn at least a pixel wide.
  double width = 0;
  // Round, square, flat.
  unsigned cap = 0;
  // Round, bevel, miter.
  unsigned join = 0;
  bool geometric = false;
  // Made by CreatePen, not ExtCreatePen: the background colour fills its gaps, and a wide one is solid.
  bool simple = true;
  // Of PS_USERSTYLE: the lengths of dashes and gaps, alternating.
  std::vector<double> dashes{};
  Brush brush{.colour = 0};
};

// LOGFONT.
struct Font {
  // Positive: cell height. Negative: character height. 0: the default height.
  double height = 0;
  // Average width of a character. 0: as the typeface has it.
  double width = 0;
  // Tenths of a degree, counterclockwise.
  double escapement = 0;
  int weight = 400;
  bool italic = false;
  bool underline = false;
  bool strike_out = false;
  unsigned charset = 1;
  QString family = QStringLiteral("Arial");
  // The typeface to use if `family` is not installed.
  QString stand_in = QStringLiteral("Arial");
};

// Rectangles in logical units or device pixels.
struct Region {
  std::vector<QRectF> rects;
};

using GdiObject = std::variant<std::monostate, Pen, Brush, Font, std::shared_ptr<const Palette>, Region>;

// WHITE_BRUSH to DC_PEN by their numbers, 0 to 19. Empty for DEFAULT_PALETTE and for numbers that have no object.
GdiObject StockObject(unsigned number);

// The objects that the records of a file have made.
class ObjectTable {
 public:
  // Adds it at the first free index, as WMF requires.
  void Add(GdiObject object);
  // Replaces what is at that index.
  void Set(std::uint32_t index, GdiObject object);
  void Remove(std::uint32_t index);
  // Empty if there is none.
  const GdiObject& Get(std::uint32_t index) const;

 private:
  struct Slot {
    bool used = false;
    GdiObject object;
  };
  std::vector<Slot> slots_;
};

// A brush that draws nothing if the object is no brush.
Brush BrushOf(const GdiObject& object);

// Objects from the values that both formats store. Styles and hatches have their GDI numbers.
Pen MakeSimplePen(unsigned style, double width, ColourReference colour);
Brush MakeSimpleBrush(unsigned style, ColourReference colour, unsigned hatch);
// Draws nothing if the image is null.
Brush MakePatternBrush(const QImage& image, bool two_colours);
// The eight bytes of a LOGFONT from lfItalic to lfPitchAndFamily.
void ReadFontFlags(Font& font, ByteReader& reader);
std::shared_ptr<const Palette> ReadPalette(ByteReader& reader, std::size_t count);
// A copy with `count` entries from `start` on replaced.
std::shared_ptr<const Palette> ChangedPalette(const Palette& palette, std::size_t start, ByteReader& reader,
                                              std::size_t count);

}  // namespace quorvale::metafile
