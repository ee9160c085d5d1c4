#pragma once

#include <QImage>
#include <QPolygonF>
#include <QRectF>
#include <QString>
#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

namespace quorvale {

// 0x00BBGGRR; 0x01 in the top byte makes it the number of a palette's colour.
using ColourReference = std::uint32_t;

struct Palette {
  std::vector<QRgb> colours;
};

struct Brush {
  enum class Style { kNone, kSolid, kHatch, kPattern };
  Style style = Style::kSolid;
  ColourReference colour = 0xFFFFFF;
  // Horizontal, vertical, falling, rising, cross, diagonal cross.
  unsigned hatch = 0;
  QImage pattern{};
  // The pattern's 0 and 1 are the text's colour and the background's.
  bool two_colours = false;
};

struct Pen {
  enum Style : unsigned { kSolid, kDash, kDot, kDashDot, kDashDotDot, kNull, kInsideFrame, kUser, kAlternate };
  enum Cap : unsigned { kRoundCap, kSquareCap, kFlatCap };
  enum Join : unsigned { kRoundJoin, kBevelJoin, kMiterJoin };

  unsigned style = kSolid;
  // In the records' units unless cosmetic; the least is a pixel.
  double width = 0;
  unsigned cap = kRoundCap;
  unsigned join = kRoundJoin;
  bool geometric = false;
  // Made the old way: its gaps are filled, and it is solid if it is wide.
  bool simple = true;
  // The user's dashes and gaps.
  std::vector<double> dashes{};
  Brush brush{.colour = 0};
};

struct Font {
  // Of the cell if above 0, of the letters if below.
  double height = 0;
  double width = 0;
  // Tenths of a degree against the clock.
  double escapement = 0;
  int weight = 400;
  bool italic = false;
  bool underline = false;
  bool strike_out = false;
  unsigned charset = 1;
  QString family = QStringLiteral("Arial");
  // What is as near to it as can be, if it is not there.
  QString stand_in = QStringLiteral("Arial");
};

// Rectangles of a region, in units or device pixels.
struct Region {
  std::vector<QRectF> rects;
};

using GdiObject = std::variant<std::monostate, Pen, Brush, Font, std::shared_ptr<const Palette>, Region>;

// One of the objects that every device has: 0 to 19.
GdiObject StockObject(unsigned number);

}  // namespace quorvale
