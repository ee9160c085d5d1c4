#pragma once

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <chrono>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "platform/desktop/metafile/device_state.h"
#include "platform/desktop/metafile/record_bitmaps.h"

namespace quorvale::metafile {

struct CanvasSetting {
  // From device pixels to pixels of the target.
  QTransform to_target;
  // The side of a screen pixel in pixels of the target, and so the width of the thinnest line.
  double unit = 1;
  // GM_ADVANCED, the graphics mode of EMF: boxes include their right and bottom edges, and text follows every
  // transform.
  bool advanced = false;
  // The target holds a background, so that raster operations can read it.
  bool over_background = false;
  std::chrono::steady_clock::time_point until = std::chrono::steady_clock::time_point::max();
};

enum class ArcKind { kOpen, kChord, kPie };
enum class PathUse { kFill, kStroke, kBoth };
enum RegionMode : unsigned { RGN_AND = 1, RGN_OR, RGN_XOR, RGN_DIFF, RGN_COPY };

// A ternary raster operation is the table of its results: bit 4 P + 2 S + D is the result for a bit P of the pattern,
// S of the source and D of the destination.
enum RasterOp : unsigned { DSTINVERT = 0x55, DSTCOPY = 0xAA, SRCCOPY = 0xCC, PATCOPY = 0xF0 };

// The operation in the 32 bits of a blit record.
constexpr unsigned TernaryOp(unsigned blit) { return blit >> 16U & 0xFFU; }
// The operation of a mix mode, R2_BLACK (1) to R2_WHITE (16). Other numbers are R2_COPYPEN.
unsigned TernaryOfRop2(unsigned rop2);
constexpr bool UsesDestination(unsigned op) { return ((op >> 1U ^ op) & 0x55U) != 0; }
constexpr bool UsesSource(unsigned op) { return ((op >> 2U ^ op) & 0x33U) != 0; }

struct TextRun {
  QString text;
  // The reference point, in logical units.
  QPointF at;
  // ETO_OPAQUE and ETO_CLIPPED, with their rectangle in logical units.
  bool fill_rect = false;
  bool clip_to_rect = false;
  QRectF rect;
  // From each UTF-16 unit to the next, in logical units. Empty: the typeface's own.
  std::vector<double> advances;
};

struct BlitRequest {
  // In logical units; negative sides mirror.
  QRectF target;
  // Replaces `target` by a parallelogram: top left, top right, bottom left.
  QPolygonF corners;
  QImage source;
  // In pixels of `source`; negative sides mirror.
  QRectF part;
  unsigned op = SRCCOPY;
  // Black pixels of the mask select `masked_op`.
  QImage mask;
  QPointF mask_at;
  unsigned masked_op = DSTCOPY;
  double opacity = 1;

  // Sets `part` from a record's source rectangle. A negative side counts back from the pixel at which it starts.
  void SetPart(const QRectF& counted);
  // Sets `source` and `part`. The rectangle counts from the bitmap's lower edge unless it is top-down; the image
  // holds the rows from `first_row` on.
  void SetDibPart(const Dib& dib, const QRectF& counted, int first_row);
};

struct GradientVertex {
  // In logical units.
  QPointF at;
  QRgb colour = 0;
};

// The device context that the records of both formats draw on. Coordinates are in logical units, and pens, brushes
// and the like come from the current state, unless a comment says otherwise. What is too far away or too expensive to
// paint is left out.
class Canvas {
 public:
  // The target is RGB32 or ARGB32_Premultiplied and outlives the canvas.
  Canvas(QImage& target, const CanvasSetting& setting, DeviceState initial);

  DeviceState& State() { return state_; }
  const Palette* SelectedPalette() const { return state_.palette.get(); }
  void SaveDc();
  // Negative: counts back from the state saved last, which is -1. Positive: the state saved at that depth, from 1.
  // Ignored if there is none.
  void RestoreDc(int saved);
  // Whether something was skipped because it reads the background. Further drawing is of no use then.
  bool NeedsBackground() const { return needs_background_; }
  bool OutOfTime() const { return std::chrono::steady_clock::now() >= setting_.until; }
  // The bounds of all that was drawn, in pixels of the target, clipped or not.
  const QRectF& Drawn() const { return drawn_; }

  // Lines, curves and shapes. While a path is open they are added to it instead of being drawn.
  void MoveTo(QPointF point);
  void LineTo(QPointF point);
  void Polyline(std::span<const QPointF> points);
  void PolylineTo(std::span<const QPointF> points);
  void PolyBezier(std::span<const QPointF> points);
  void PolyBezierTo(std::span<const QPointF> points);
  // `types` are PT_ values, one a point.
  void PolyDraw(std::span<const QPointF> points, std::span<const std::uint8_t> types);
  // `counts` splits the points into figures.
  void PolyPolyline(std::span<const QPointF> points, std::span<const std::size_t> counts);
  void PolyPolygon(std::span<const QPointF> points, std::span<const std::size_t> counts);
  void Rectangle(const QRectF& box);
  // `corner` is the size of the ellipse that rounds the corners.
  void RoundRect(const QRectF& box, QSizeF corner);
  void Ellipse(const QRectF& box);
  // From the ray through `from` to the ray through `to`, both from the centre of the box.
  void Arc(ArcKind kind, const QRectF& box, QPointF from, QPointF to);
  void ArcTo(const QRectF& box, QPointF from, QPointF to);
  // Angles in degrees, counterclockwise.
  void AngleArc(QPointF centre, double radius, double start, double sweep);

  // Paths.
  void BeginPath();
  void EndPath();
  void AbortPath();
  void CloseFigure();
  void FlattenPath();
  void WidenPath();
  void UsePath(PathUse use);
  void SelectClipPath(RegionMode mode);

  // Clipping and regions.
  void IntersectClipRect(const QRectF& rect);
  void ExcludeClipRect(const QRectF& rect);
  void OffsetClip(QPointF by);
  void SetMetaRegion();
  void ResetClip();
  // The region is in logical units, or in device pixels.
  void SelectClip(const Region& region, RegionMode mode, bool logical);
  void FillRegion(const Region& region, const Brush& brush);
  void FrameRegion(const Region& region, const Brush& brush, QSizeF size);
  void InvertRegion(const Region& region);

  // Pixels.
  void SetPixel(QPointF point, ColourReference colour);
  // Fills up to that colour, or all that has that colour.
  void FloodFill(QPointF point, ColourReference colour, bool up_to_colour);
  // A gradient along one axis of the rectangle that these corners span.
  void GradientRect(std::span<const GradientVertex, 2> corners, bool vertical);
  void GradientTriangle(std::span<const GradientVertex, 3> corners);
  void Blit(const BlitRequest& request);

  void Text(const TextRun& run);

 private:
  using DrawFunction = std::function<void(QPainter&)>;
  // A bounding box in pixels of the target. If the transform turns or shears, in logical units with a map to pixels.
  struct Box {
    QRectF rect;
    QTransform map;
  };

  // From logical units to pixels of the target. Areas are bounded by the edges of pixels, lines run through their
  // middles.
  QTransform ToPixels() const { return state_.mapping.ToDevice() * setting_.to_target; }
  QTransform ToMiddles() const;
  QPointF Middle(QPointF point) const;
  Box MakeBox(const QRectF& box) const;
  QPainterPath ArcPath(ArcKind kind, const QRectF& box, QPointF from, QPointF to) const;
  QPainterPath RegionPath(const Region& region, const QTransform& map) const;
  QPainterPath Figures(std::span<const QPointF> points, std::span<const std::size_t> counts, bool closed) const;
  void StartAtPosition(QPainterPath& path) const;
  void AddLines(QPainterPath& path, std::span<const QPointF> points) const;
  void AddCurves(QPainterPath& path, std::span<const QPointF> points) const;

  // Adds what `add` adds behind the current position to the open path, or paints it.
  template <typename Add>
  void DrawFromPosition(Add add);
  // Adds the path to the open one, or paints it.
  void Draw(const QPainterPath& path, PathUse use);
  void Paint(const QPainterPath& path, PathUse use);
  // None if the pen draws nothing.
  std::optional<QPen> MakePen() const;
  // What fills the gaps of a dashed line; none if they stay open.
  std::optional<QPen> MakeGapPen(const QPen& pen) const;
  double PenWidth() const;
  QBrush MakeBrush(const Brush& brush) const;
  // For blits, whose operations may use no pattern: without a brush it is white.
  QBrush MakePatternOfBlit() const;

  // Draws on the target by a raster operation, with what `draw` paints as the pattern.
  void PaintByOp(unsigned op, const QRectF& bounds, const DrawFunction& draw);
  // A transparent image of that area with what `draw` paints inside the clip region. Null if out of memory.
  QImage MakeLayer(const QRect& area, const DrawFunction& draw) const;
  // The part of the target that is inside the clip region's bounds.
  QRect Visible(const QRectF& bounds) const;
  // False, and noted, if the operation reads a background that is not there.
  bool CanUse(unsigned op);
  // Pixels that are at most half covered in `pattern` or `source` keep their colour. A null source is the pattern.
  void Combine(unsigned op, const QRect& area, const QImage& pattern, const QImage& source);
  void BlitByOps(const BlitRequest& request, const QTransform& place, const QRect& area, const QPainterPath& outline);

  QRegion PathRegion(const QPainterPath& path) const;
  void CombineClip(const QRegion& region, RegionMode mode);
  void UseClip();

  struct TextLayout;
  TextLayout LayOut(const TextRun& run) const;

  QImage& target_;
  CanvasSetting setting_;
  QPainter painter_;
  DeviceState state_;
  std::vector<DeviceState> saved_;
  // The painter does not have the state's clip region yet.
  bool clip_changed_ = true;
  bool path_open_ = false;
  QPainterPath path_;
  bool needs_background_ = false;
  QRectF drawn_;
};

}  // namespace quorvale::metafile
