// Lines, areas and curves of EMF files. Most come with numbers of 32 bits and of 16.

#include <vector>

#include "platform/desktop/metafile/emf_reading.h"
#include "platform/desktop/metafile/playback.h"

namespace quorvale {
namespace {

constexpr std::size_t kBounds = 16;

template <void (MetafileCanvas::*draw)(std::span<const QPointF>), bool small>
void Points(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBounds);
  const std::size_t count = reader.U32();
  (playback.canvas.*draw)(EmfPoints(reader, count, small));
}

template <bool small>
void Polygon(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBounds);
  const std::size_t count = reader.U32();
  const std::vector<QPointF> points = EmfPoints(reader, count, small);
  const std::size_t read = points.size();
  playback.canvas.Polygons(points, {&read, 1});
}

template <void (MetafileCanvas::*draw)(std::span<const QPointF>, std::span<const std::size_t>), bool small>
void Several(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBounds);
  const std::size_t parts = reader.U32();
  const std::size_t count = reader.U32();
  std::vector<std::size_t> counts(reader.Capped(parts, 4));
  for (std::size_t& part : counts) part = reader.U32();
  (playback.canvas.*draw)(EmfPoints(reader, count, small), counts);
}

template <bool small>
void PolyDraw(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBounds);
  const std::size_t count = reader.U32();
  const std::vector<QPointF> points = EmfPoints(reader, count, small);
  playback.canvas.PolyDraw(points, reader.Rest());
}

void MoveTo(const Playback& playback, ByteReader& reader) { playback.canvas.MoveTo(EmfPoint(reader)); }
void LineTo(const Playback& playback, ByteReader& reader) { playback.canvas.LineTo(EmfPoint(reader)); }
void Rectangle(const Playback& playback, ByteReader& reader) { playback.canvas.Rectangle(EmfRect(reader)); }
void Ellipse(const Playback& playback, ByteReader& reader) { playback.canvas.Ellipse(EmfRect(reader)); }
void RoundRectangle(const Playback& playback, ByteReader& reader) {
  const QRectF box = EmfRect(reader);
  playback.canvas.RoundRectangle(box, EmfSize(reader));
}

template <ArcKind kind>
void Arc(const Playback& playback, ByteReader& reader) {
  const QRectF box = EmfRect(reader);
  const QPointF from = EmfPoint(reader);
  playback.canvas.Arc(kind, box, from, EmfPoint(reader));
}

void ArcTo(const Playback& playback, ByteReader& reader) {
  const QRectF box = EmfRect(reader);
  const QPointF from = EmfPoint(reader);
  playback.canvas.ArcTo(box, from, EmfPoint(reader));
}

void AngleArc(const Playback& playback, ByteReader& reader) {
  const QPointF centre = EmfPoint(reader);
  const double radius = reader.U32();
  const double start = reader.F32();
  playback.canvas.AngleArc(centre, radius, start, reader.F32());
}

void SetPixel(const Playback& playback, ByteReader& reader) {
  const QPointF at = EmfPoint(reader);
  playback.canvas.SetPixel(at, reader.U32());
}

void FloodFill(const Playback& playback, ByteReader& reader) {
  const QPointF at = EmfPoint(reader);
  const ColourReference colour = reader.U32();
  playback.canvas.FloodFill(at, colour, reader.U32() == 0);
}

using Canvas = MetafileCanvas;

constexpr RecordHandler kRecords[] = {
    {2, Points<&Canvas::Bezier, false>, true},
    {3, Polygon<false>, true},
    {4, Points<&Canvas::Polyline, false>, true},
    {5, Points<&Canvas::BezierTo, false>, true},
    {6, Points<&Canvas::PolylineTo, false>, true},
    {7, Several<&Canvas::Polylines, false>, true},
    {8, Several<&Canvas::Polygons, false>, true},
    {85, Points<&Canvas::Bezier, true>, true},
    {86, Polygon<true>, true},
    {87, Points<&Canvas::Polyline, true>, true},
    {88, Points<&Canvas::BezierTo, true>, true},
    {89, Points<&Canvas::PolylineTo, true>, true},
    {90, Several<&Canvas::Polylines, true>, true},
    {91, Several<&Canvas::Polygons, true>, true},
    {56, PolyDraw<false>, true},
    {92, PolyDraw<true>, true},
    {15, SetPixel, true},
    {27, MoveTo},
    {54, LineTo, true},
    {41, AngleArc, true},
    {42, Ellipse, true},
    {43, Rectangle, true},
    {44, RoundRectangle, true},
    {45, Arc<ArcKind::kOpen>, true},
    {46, Arc<ArcKind::kChord>, true},
    {47, Arc<ArcKind::kPie>, true},
    {55, ArcTo, true},
    {53, FloodFill, true},
};

}  // namespace

std::span<const RecordHandler> EmfShapeRecords() { return kRecords; }

}  // namespace quorvale
