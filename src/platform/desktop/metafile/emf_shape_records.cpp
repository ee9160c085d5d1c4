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
    {2, kDraws, Points<&Canvas::Bezier, false>},
    {3, kDraws, Polygon<false>},
    {4, kDraws, Points<&Canvas::Polyline, false>},
    {5, kDraws, Points<&Canvas::BezierTo, false>},
    {6, kDraws, Points<&Canvas::PolylineTo, false>},
    {7, kDraws, Several<&Canvas::Polylines, false>},
    {8, kDraws, Several<&Canvas::Polygons, false>},
    {85, kDraws, Points<&Canvas::Bezier, true>},
    {86, kDraws, Polygon<true>},
    {87, kDraws, Points<&Canvas::Polyline, true>},
    {88, kDraws, Points<&Canvas::BezierTo, true>},
    {89, kDraws, Points<&Canvas::PolylineTo, true>},
    {90, kDraws, Several<&Canvas::Polylines, true>},
    {91, kDraws, Several<&Canvas::Polygons, true>},
    {56, kDraws, PolyDraw<false>},
    {92, kDraws, PolyDraw<true>},
    {15, kDraws, SetPixel},
    {27, kPrepares, MoveTo},
    {54, kDraws, LineTo},
    {41, kDraws, AngleArc},
    {42, kDraws, Ellipse},
    {43, kDraws, Rectangle},
    {44, kDraws, RoundRectangle},
    {45, kDraws, Arc<ArcKind::kOpen>},
    {46, kDraws, Arc<ArcKind::kChord>},
    {47, kDraws, Arc<ArcKind::kPie>},
    {55, kDraws, ArcTo},
    {53, kDraws, FloodFill},
};

}  // namespace

std::span<const RecordHandler> EmfShapeRecords() { return kRecords; }

}  // namespace quorvale
