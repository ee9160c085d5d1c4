// EMF records: lines, curves, shapes, paths and text.

#include <algorithm>
#include <vector>

#include "platform/desktop/metafile/record_values.h"
#include "platform/desktop/metafile/records.h"
#include "platform/desktop/metafile/text_decoding.h"

namespace quorvale::metafile {
namespace {

// Lines and shapes. Records with many points come in two sizes: with coordinates of 32 bits and, named ...16, of 16.

using ReadPoints = std::vector<QPointF> (*)(ByteReader& reader, std::size_t count);

template <void (Canvas::*draw)(std::span<const QPointF>), ReadPoints read_points>
void EmrPoly(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBoundsSize);
  const std::size_t count = reader.U32();
  (playback.canvas.*draw)(read_points(reader, count));
}

template <ReadPoints read_points>
void EmrPolygon(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBoundsSize);
  const std::size_t count = reader.U32();
  const std::vector<QPointF> points = read_points(reader, count);
  const std::size_t read = points.size();
  playback.canvas.PolyPolygon(points, {&read, 1});
}

template <void (Canvas::*draw)(std::span<const QPointF>, std::span<const std::size_t>), ReadPoints read_points>
void EmrPolyPoly(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBoundsSize);
  const std::size_t figures = reader.U32();
  const std::size_t count = reader.U32();
  std::vector<std::size_t> counts(reader.Capped(figures, 4));
  for (std::size_t& figure : counts) figure = reader.U32();
  (playback.canvas.*draw)(read_points(reader, count), counts);
}

template <ReadPoints read_points>
void EmrPolyDraw(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBoundsSize);
  const std::size_t count = reader.U32();
  const std::vector<QPointF> points = read_points(reader, count);
  playback.canvas.PolyDraw(points, reader.Rest());
}

void EmrMoveToEx(const Playback& playback, ByteReader& reader) { playback.canvas.MoveTo(EmfPoint(reader)); }
void EmrLineTo(const Playback& playback, ByteReader& reader) { playback.canvas.LineTo(EmfPoint(reader)); }
void EmrRectangle(const Playback& playback, ByteReader& reader) { playback.canvas.Rectangle(EmfRect(reader)); }
void EmrEllipse(const Playback& playback, ByteReader& reader) { playback.canvas.Ellipse(EmfRect(reader)); }
void EmrRoundRect(const Playback& playback, ByteReader& reader) {
  const QRectF box = EmfRect(reader);
  playback.canvas.RoundRect(box, EmfSize(reader));
}

// EMR_ARC, EMR_CHORD, EMR_PIE.
template <ArcKind kind>
void EmrArc(const Playback& playback, ByteReader& reader) {
  const QRectF box = EmfRect(reader);
  const QPointF from = EmfPoint(reader);
  playback.canvas.Arc(kind, box, from, EmfPoint(reader));
}

void EmrArcTo(const Playback& playback, ByteReader& reader) {
  const QRectF box = EmfRect(reader);
  const QPointF from = EmfPoint(reader);
  playback.canvas.ArcTo(box, from, EmfPoint(reader));
}

void EmrAngleArc(const Playback& playback, ByteReader& reader) {
  const QPointF centre = EmfPoint(reader);
  const double radius = reader.U32();
  const double start = reader.F32();
  playback.canvas.AngleArc(centre, radius, start, reader.F32());
}

void EmrSetPixelV(const Playback& playback, ByteReader& reader) {
  const QPointF at = EmfPoint(reader);
  playback.canvas.SetPixel(at, reader.U32());
}

void EmrExtFloodFill(const Playback& playback, ByteReader& reader) {
  const QPointF at = EmfPoint(reader);
  const ColourReference colour = reader.U32();
  playback.canvas.FloodFill(at, colour, reader.U32() == FLOODFILLBORDER);
}

template <void (Canvas::*act)()>
void EmrPath(const Playback& playback, ByteReader& /*reader*/) {
  (playback.canvas.*act)();
}

// EMR_FILLPATH, EMR_STROKEANDFILLPATH, EMR_STROKEPATH.
template <PathUse use>
void EmrUsePath(const Playback& playback, ByteReader& /*reader*/) {
  playback.canvas.UsePath(use);
}

void EmrSelectClipPath(const Playback& playback, ByteReader& reader) {
  playback.canvas.SelectClipPath(static_cast<RegionMode>(reader.U32()));
}

// Longer texts are cut off, because their layout takes time and memory.
constexpr std::size_t kMostCharacters = 8192;

// EMRTEXT, which the records of both text functions hold. Its offsets count from the start of the record.
void ReadEmrText(const Playback& playback, ByteReader& reader, bool wide) {
  TextRun run;
  run.at = EmfPoint(reader);
  const std::size_t count = std::min<std::size_t>(reader.U32(), kMostCharacters);
  const std::size_t text_at = reader.U32();
  const unsigned options = reader.U32();
  run.rect = EmfRect(reader);
  const std::size_t advances_at = reader.U32();
  run.fill_rect = (options & ETO_OPAQUE) != 0;
  run.clip_to_rect = (options & ETO_CLIPPED) != 0;
  const Font& font = playback.State().font;
  const ByteSpan bytes = reader.Piece(text_at, wide ? count * 2 : count);
  if ((options & ETO_GLYPH_INDEX) != 0) {
    run.text = DecodeGlyphs(bytes);
  } else {
    run.text = wide ? DecodeWide(bytes) : DecodeText(bytes, font);
  }
  // With ETO_PDY each advance has a vertical part, which is ignored.
  const std::size_t step = (options & ETO_PDY) != 0 ? 8 : 4;
  if (advances_at != 0 && !bytes.empty() && (wide || !IsMultiByte(font))) {
    const ByteSpan advances = reader.Piece(advances_at, count * step);
    for (std::size_t i = 0; i < advances.size(); i += step) run.advances.push_back(ByteReader(advances, i).I32());
  }
  playback.canvas.Text(run);
}

// Bounds, graphics mode and scales.
constexpr std::size_t kTextHeadSize = 28;

// EMR_EXTTEXTOUTA, EMR_EXTTEXTOUTW.
template <bool wide>
void EmrExtTextOut(const Playback& playback, ByteReader& reader) {
  reader.Skip(kTextHeadSize);
  ReadEmrText(playback, reader, wide);
}

// EMR_POLYTEXTOUTA, EMR_POLYTEXTOUTW.
template <bool wide>
void EmrPolyTextOut(const Playback& playback, ByteReader& reader) {
  constexpr std::size_t kEmrTextSize = 40;
  reader.Skip(kTextHeadSize);
  const std::size_t count = reader.U32();
  for (std::size_t i = reader.Capped(count, kEmrTextSize); i > 0 && !playback.canvas.OutOfTime(); --i) {
    ReadEmrText(playback, reader, wide);
  }
}

void EmrSmallTextOut(const Playback& playback, ByteReader& reader) {
  constexpr std::size_t kModeAndScalesSize = 12;
  TextRun run;
  run.at = EmfPoint(reader);
  const std::size_t count = std::min<std::size_t>(reader.U32(), kMostCharacters);
  const unsigned options = reader.U32();
  reader.Skip(kModeAndScalesSize);
  if ((options & ETO_NO_RECT) == 0) {
    run.rect = EmfRect(reader);
    run.fill_rect = (options & ETO_OPAQUE) != 0;
    run.clip_to_rect = (options & ETO_CLIPPED) != 0;
  }
  const bool wide = (options & ETO_SMALL_CHARS) == 0;
  const ByteSpan bytes = reader.Piece(reader.At(), wide ? count * 2 : count);
  if ((options & ETO_GLYPH_INDEX) == 0) {
    // Small characters are the low bytes of UTF-16 units.
    run.text =
        wide ? DecodeWide(bytes)
             : QString::fromLatin1(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
  }
  playback.canvas.Text(run);
}

constexpr RecordHandler kEmfShapeRecords[] = {
    {EMR_POLYBEZIER, kDraws, EmrPoly<&Canvas::PolyBezier, PointsOf32Bits>},
    {EMR_POLYGON, kDraws, EmrPolygon<PointsOf32Bits>},
    {EMR_POLYLINE, kDraws, EmrPoly<&Canvas::Polyline, PointsOf32Bits>},
    {EMR_POLYBEZIERTO, kDraws, EmrPoly<&Canvas::PolyBezierTo, PointsOf32Bits>},
    {EMR_POLYLINETO, kDraws, EmrPoly<&Canvas::PolylineTo, PointsOf32Bits>},
    {EMR_POLYPOLYLINE, kDraws, EmrPolyPoly<&Canvas::PolyPolyline, PointsOf32Bits>},
    {EMR_POLYPOLYGON, kDraws, EmrPolyPoly<&Canvas::PolyPolygon, PointsOf32Bits>},
    {EMR_POLYBEZIER16, kDraws, EmrPoly<&Canvas::PolyBezier, PointsOf16Bits>},
    {EMR_POLYGON16, kDraws, EmrPolygon<PointsOf16Bits>},
    {EMR_POLYLINE16, kDraws, EmrPoly<&Canvas::Polyline, PointsOf16Bits>},
    {EMR_POLYBEZIERTO16, kDraws, EmrPoly<&Canvas::PolyBezierTo, PointsOf16Bits>},
    {EMR_POLYLINETO16, kDraws, EmrPoly<&Canvas::PolylineTo, PointsOf16Bits>},
    {EMR_POLYPOLYLINE16, kDraws, EmrPolyPoly<&Canvas::PolyPolyline, PointsOf16Bits>},
    {EMR_POLYPOLYGON16, kDraws, EmrPolyPoly<&Canvas::PolyPolygon, PointsOf16Bits>},
    {EMR_POLYDRAW, kDraws, EmrPolyDraw<PointsOf32Bits>},
    {EMR_POLYDRAW16, kDraws, EmrPolyDraw<PointsOf16Bits>},
    {EMR_SETPIXELV, kDraws, EmrSetPixelV},
    {EMR_MOVETOEX, kPrepares, EmrMoveToEx},
    {EMR_LINETO, kDraws, EmrLineTo},
    {EMR_ANGLEARC, kDraws, EmrAngleArc},
    {EMR_ELLIPSE, kDraws, EmrEllipse},
    {EMR_RECTANGLE, kDraws, EmrRectangle},
    {EMR_ROUNDRECT, kDraws, EmrRoundRect},
    {EMR_ARC, kDraws, EmrArc<ArcKind::kOpen>},
    {EMR_CHORD, kDraws, EmrArc<ArcKind::kChord>},
    {EMR_PIE, kDraws, EmrArc<ArcKind::kPie>},
    {EMR_ARCTO, kDraws, EmrArcTo},
    {EMR_EXTFLOODFILL, kDraws, EmrExtFloodFill},
    {EMR_BEGINPATH, kPrepares, EmrPath<&Canvas::BeginPath>},
    {EMR_ENDPATH, kPrepares, EmrPath<&Canvas::EndPath>},
    {EMR_CLOSEFIGURE, kPrepares, EmrPath<&Canvas::CloseFigure>},
    {EMR_FILLPATH, kDraws, EmrUsePath<PathUse::kFill>},
    {EMR_STROKEANDFILLPATH, kDraws, EmrUsePath<PathUse::kBoth>},
    {EMR_STROKEPATH, kDraws, EmrUsePath<PathUse::kStroke>},
    {EMR_FLATTENPATH, kPrepares, EmrPath<&Canvas::FlattenPath>},
    {EMR_WIDENPATH, kPrepares, EmrPath<&Canvas::WidenPath>},
    {EMR_SELECTCLIPPATH, kPrepares, EmrSelectClipPath},
    {EMR_ABORTPATH, kPrepares, EmrPath<&Canvas::AbortPath>},
    {EMR_EXTTEXTOUTA, kDraws, EmrExtTextOut<false>},
    {EMR_EXTTEXTOUTW, kDraws, EmrExtTextOut<true>},
    {EMR_POLYTEXTOUTA, kDraws, EmrPolyTextOut<false>},
    {EMR_POLYTEXTOUTW, kDraws, EmrPolyTextOut<true>},
    {EMR_SMALLTEXTOUT, kDraws, EmrSmallTextOut},
};

}  // namespace

std::span<const RecordHandler> EmfShapeRecords() { return kEmfShapeRecords; }

}  // namespace quorvale::metafile
