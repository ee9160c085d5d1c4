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
#include "platform/desktop/metafile/dib.h"

namespace quorvale {

struct CanvasSetting {
  // Device pixels to pixels of the target.
  QTransform to_target;
  // Pixels of the target, across, to a pixel of the screen: what the thinnest line takes.
  double unit = 1;
  // The rules of EMF: a box includes its right and bottom edges, and text follows every transform.
  bool advanced = false;
  // The target holds the background, so that operations on it have their due.
  bool over_background = false;
  std::chrono::steady_clock::time_point until = std::chrono::steady_clock::time_point::max();
};

enum class ArcKind { kOpen, kChord, kPie };
enum class PathUse { kFill, kStroke, kBoth };
enum class ClipMode : unsigned { kAnd = 1, kOr, kXor, kWithout, kCopy };

struct TextRun {
  QString text;
  QPointF at;
  bool fill_rect = false;
  bool clip_to_rect = false;
  QRectF rect;
  // From one character to the next, in units; empty if the font's own.
  std::vector<double> advances;
};

struct BlitRequest {
  // In units; sides below 0 mirror. A parallelogram's corners instead: top left, top right, bottom left.
  QRectF target;
  QPolygonF corners;
  QImage source;
  QRectF part;
  unsigned op = 0xCC;
  // Where the mask is black, the other operation.
  QImage mask;
  QPointF mask_at;
  unsigned masked_op = 0xAA;
  double opacity = 1;

  // The part of `source`. Sides below 0 mirror, and count back from the pixel that they begin with.
  void SetPart(const QRectF& counted);
  // A part of a bitmap that counts from its lower edge, of which the rows from `first` on are at hand.
  void SetDibPart(const Dib& dib, const QRectF& counted, int first);
};

struct GradientVertex {
  QPointF at;
  QRgb colour = 0;
};

// Draws what the records say, in their units, with the objects of the current state. Both kinds of
// metafile share it.
class MetafileCanvas {
 public:
  // The target is RGB32 or ARGB32_Premultiplied and outlives the canvas.
  MetafileCanvas(QImage& target, const CanvasSetting& setting, DeviceState initial);

  DeviceState& State() { return state_; }
  void Save();
  // The last one if -1, and so on; from 1 on the one that was saved at that depth.
  void Restore(int which);
  // Whether something would have needed the background; drawing then has no use.
  bool NeedsBackground() const { return needs_background_; }
  bool OutOfTime() const { return std::chrono::steady_clock::now() >= setting_.until; }
  // What was drawn on, in pixels of the target.
  const QRectF& Drawn() const { return drawn_; }

  // Lines and areas.
  void MoveTo(QPointF point);
  void LineTo(QPointF point);
  void Polyline(std::span<const QPointF> points);
  void PolylineTo(std::span<const QPointF> points);
  void Bezier(std::span<const QPointF> points);
  void BezierTo(std::span<const QPointF> points);
  // By GDI's point types.
  void PolyDraw(std::span<const QPointF> points, std::span<const std::uint8_t> types);
  void Polygons(std::span<const QPointF> points, std::span<const std::size_t> counts);
  void Polylines(std::span<const QPointF> points, std::span<const std::size_t> counts);
  void Rectangle(const QRectF& box);
  void RoundRectangle(const QRectF& box, QSizeF corner);
  void Ellipse(const QRectF& box);
  void Arc(ArcKind kind, const QRectF& box, QPointF from, QPointF to);
  void ArcTo(const QRectF& box, QPointF from, QPointF to);
  void AngleArc(QPointF centre, double radius, double start, double sweep);
  void SetPixel(QPointF point, ColourReference colour);
  void FloodFill(QPointF point, ColourReference colour, bool up_to_colour);
  void Gradient(std::span<const GradientVertex> corners, bool downwards);
  void GradientTriangle(std::span<const GradientVertex, 3> corners);

  // Paths.
  void BeginPath();
  void EndPath();
  void AbortPath();
  void CloseFigure();
  void FlattenPath();
  void WidenPath();
  void UsePath(PathUse use);
  void ClipToPath(ClipMode mode);

  // Clipping and regions.
  void IntersectClip(const QRectF& rect);
  void ExcludeClip(const QRectF& rect);
  void OffsetClip(QPointF by);
  // What is clipped now stays so, whatever clip comes.
  void KeepClip();
  // No region takes the clip away.
  void SelectClip(const Region* region, ClipMode mode, bool in_units);
  void FillRegion(const Region& region, const Brush& brush);
  void FrameRegion(const Region& region, const Brush& brush, QSizeF size);
  void InvertRegion(const Region& region);

  void Text(const TextRun& run);
  void Blit(const BlitRequest& request);

 private:
  using DrawFunction = std::function<void(QPainter&)>;
  // A box in the target, or in units and to be mapped if it is turned.
  struct Box {
    QRectF rect;
    QTransform map;
  };

  // From units to pixels: of areas, and of lines, which run through the middle of pixels.
  QTransform ToPixels() const { return state_.mapping.ToDevice() * setting_.to_target; }
  QTransform ToMiddles() const;
  QPointF Middle(QPointF point) const;
  Box MakeBox(const QRectF& box) const;
  QPainterPath ArcPath(ArcKind kind, const QRectF& box, QPointF from, QPointF to) const;
  QPainterPath RegionPath(const Region& region, const QTransform& map) const;
  void Continue(QPainterPath& path);
  void AddLines(QPainterPath& path, std::span<const QPointF> points) const;
  void AddCurves(QPainterPath& path, std::span<const QPointF> points) const;

  // Draws the path, or adds it to the one that is being made.
  void Draw(const QPainterPath& path, PathUse use);
  void Paint(const QPainterPath& path, PathUse use);
  std::optional<QPen> MakePen() const;
  std::optional<QPen> GapPen(const QPen& pen) const;
  double PenWidth() const;
  QBrush MakeBrush(const Brush& brush) const;

  // Draws on the target by a raster operation.
  void PaintBy(unsigned op, const QRectF& bounds, const DrawFunction& draw);
  QImage Layer(const QRect& area, const DrawFunction& draw);
  QRect Visible(const QRectF& bounds) const;
  // False if the operation must wait for a background.
  bool MayUse(unsigned op);
  void Combine(unsigned op, const QRect& area, const QImage& shape, const QImage& source);
  void BlitBy(const BlitRequest& request, const QTransform& place, const QRect& area, const QPainterPath& outline);

  QRegion PathRegion(const QPainterPath& path) const;
  void ChangeClip(const QRegion& region, ClipMode mode);
  void UseClip();

  struct TextLayout;
  TextLayout LayOut(const TextRun& run) const;

  QImage& target_;
  CanvasSetting setting_;
  QPainter painter_;
  DeviceState state_;
  std::vector<DeviceState> saved_;
  bool clip_changed_ = true;
  bool path_open_ = false;
  QPainterPath path_;
  bool needs_background_ = false;
  QRectF drawn_;
};

}  // namespace quorvale
