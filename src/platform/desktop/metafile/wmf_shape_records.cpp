// Lines, areas and curves of WMF files.

#include <vector>

#include "platform/desktop/metafile/playback.h"
#include "platform/desktop/metafile/wmf_reading.h"

namespace quorvale {
namespace {

std::vector<QPointF> ReadPoints(ByteReader& reader, std::size_t count) {
  std::vector<QPointF> points(reader.Capped(count, 4));
  for (QPointF& point : points) {
    const double x = reader.I16();
    const double y = reader.I16();
    point = {x, y};
  }
  return points;
}

void MoveTo(const Playback& playback, ByteReader& reader) { playback.canvas.MoveTo(WmfPoint(reader)); }
void LineTo(const Playback& playback, ByteReader& reader) { playback.canvas.LineTo(WmfPoint(reader)); }

void Polyline(const Playback& playback, ByteReader& reader) {
  playback.canvas.Polyline(ReadPoints(reader, reader.U16()));
}

void Polygon(const Playback& playback, ByteReader& reader) {
  const std::vector<QPointF> points = ReadPoints(reader, reader.U16());
  const std::size_t count = points.size();
  playback.canvas.Polygons(points, {&count, 1});
}

void PolyPolygon(const Playback& playback, ByteReader& reader) {
  std::vector<std::size_t> counts(reader.Capped(reader.U16(), 2));
  for (std::size_t& count : counts) count = reader.U16();
  playback.canvas.Polygons(ReadPoints(reader, reader.Left()), counts);
}

void Rectangle(const Playback& playback, ByteReader& reader) { playback.canvas.Rectangle(WmfRect(reader)); }
void Ellipse(const Playback& playback, ByteReader& reader) { playback.canvas.Ellipse(WmfRect(reader)); }
void RoundRectangle(const Playback& playback, ByteReader& reader) {
  const QPointF corner = WmfPoint(reader);
  playback.canvas.RoundRectangle(WmfRect(reader), {corner.x(), corner.y()});
}

template <ArcKind kind>
void Arc(const Playback& playback, ByteReader& reader) {
  const QPointF to = WmfPoint(reader);
  const QPointF from = WmfPoint(reader);
  playback.canvas.Arc(kind, WmfRect(reader), from, to);
}

void SetPixel(const Playback& playback, ByteReader& reader) {
  const ColourReference colour = reader.U32();
  playback.canvas.SetPixel(WmfPoint(reader), colour);
}

void FloodFill(const Playback& playback, ByteReader& reader) {
  const ColourReference colour = reader.U32();
  playback.canvas.FloodFill(WmfPoint(reader), colour, true);
}

void ExtFloodFill(const Playback& playback, ByteReader& reader) {
  const bool up_to_colour = reader.U16() == 0;
  const ColourReference colour = reader.U32();
  playback.canvas.FloodFill(WmfPoint(reader), colour, up_to_colour);
}

constexpr RecordHandler kRecords[] = {
    {0x0214, kPrepares, MoveTo},
    {0x0213, kDraws, LineTo},
    {0x0325, kDraws, Polyline},
    {0x0324, kDraws, Polygon},
    {0x0538, kDraws, PolyPolygon},
    {0x041B, kDraws, Rectangle},
    {0x0418, kDraws, Ellipse},
    {0x061C, kDraws, RoundRectangle},
    {0x0817, kDraws, Arc<ArcKind::kOpen>},
    {0x0830, kDraws, Arc<ArcKind::kChord>},
    {0x081A, kDraws, Arc<ArcKind::kPie>},
    {0x041F, kDraws, SetPixel},
    {0x0419, kDraws, FloodFill},
    {0x0548, kDraws, ExtFloodFill},
};

}  // namespace

std::span<const RecordHandler> WmfShapeRecords() { return kRecords; }

}  // namespace quorvale
