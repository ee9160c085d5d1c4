// WMF records: state, clipping, shapes and text. Objects, regions and bitmaps are in wmf_object_records.cpp. A
// function's parameters are stored in reverse order.

#include <vector>

#include "platform/desktop/metafile/record_values.h"
#include "platform/desktop/metafile/records.h"
#include "platform/desktop/metafile/text_decoding.h"

namespace quorvale::metafile {
namespace {

void MetaSaveDc(const Playback& playback, ByteReader& /*reader*/) { playback.canvas.SaveDc(); }
void MetaRestoreDc(const Playback& playback, ByteReader& reader) { playback.canvas.RestoreDc(reader.I16()); }

void MetaSetBkMode(const Playback& playback, ByteReader& reader) {
  playback.State().opaque_background = reader.U16() != TRANSPARENT;
}
void MetaSetRop2(const Playback& playback, ByteReader& reader) { playback.State().rop2 = reader.U16(); }
void MetaSetPolyFillMode(const Playback& playback, ByteReader& reader) {
  playback.State().fill_rule = reader.U16() == WINDING ? Qt::WindingFill : Qt::OddEvenFill;
}
void MetaSetStretchBltMode(const Playback& playback, ByteReader& reader) {
  playback.State().halftone = reader.U16() == HALFTONE;
}
void MetaSetTextCharExtra(const Playback& playback, ByteReader& reader) { playback.State().extra_space = reader.I16(); }
void MetaSetTextAlign(const Playback& playback, ByteReader& reader) { playback.State().text_align = reader.U16(); }
void MetaSetTextColor(const Playback& playback, ByteReader& reader) { playback.State().text_colour = reader.U32(); }
void MetaSetBkColor(const Playback& playback, ByteReader& reader) { playback.State().background = reader.U32(); }
void MetaSetTextJustification(const Playback& playback, ByteReader& reader) {
  const double blanks = reader.U16();
  const double extra = reader.I16();
  playback.State().justification = blanks > 0 ? extra / blanks : 0;
}

void MetaSetMapMode(const Playback& playback, ByteReader& reader) { playback.Map().SetMode(reader.U16()); }
void MetaSetWindowOrg(const Playback& playback, ByteReader& reader) {
  playback.Map().SetWindowOrigin(WmfPoint(reader));
}
void MetaSetViewportOrg(const Playback& playback, ByteReader& reader) {
  playback.Map().SetViewportOrigin(WmfPoint(reader));
}
void MetaOffsetWindowOrg(const Playback& playback, ByteReader& reader) {
  playback.Map().SetWindowOrigin(playback.Map().WindowOrigin() + WmfPoint(reader));
}
void MetaOffsetViewportOrg(const Playback& playback, ByteReader& reader) {
  playback.Map().SetViewportOrigin(playback.Map().ViewportOrigin() + WmfPoint(reader));
}
void MetaSetWindowExt(const Playback& playback, ByteReader& reader) {
  const QPointF extent = WmfPoint(reader);
  playback.Map().SetWindowExtent(extent.x(), extent.y());
}
void MetaSetViewportExt(const Playback& playback, ByteReader& reader) {
  const QPointF extent = WmfPoint(reader);
  playback.Map().SetViewportExtent(extent.x(), extent.y());
}

struct Ratio {
  double x_num, x_denom, y_num, y_denom;
};

Ratio ReadRatio(ByteReader& reader) {
  Ratio ratio{};
  for (double* part : {&ratio.y_denom, &ratio.y_num, &ratio.x_denom, &ratio.x_num}) *part = reader.I16();
  return ratio;
}

void MetaScaleWindowExt(const Playback& playback, ByteReader& reader) {
  const Ratio ratio = ReadRatio(reader);
  playback.Map().ScaleWindowExtent(ratio.x_num, ratio.x_denom, ratio.y_num, ratio.y_denom);
}
void MetaScaleViewportExt(const Playback& playback, ByteReader& reader) {
  const Ratio ratio = ReadRatio(reader);
  playback.Map().ScaleViewportExtent(ratio.x_num, ratio.x_denom, ratio.y_num, ratio.y_denom);
}

void MetaExcludeClipRect(const Playback& playback, ByteReader& reader) {
  playback.canvas.ExcludeClipRect(WmfRect(reader));
}
void MetaIntersectClipRect(const Playback& playback, ByteReader& reader) {
  playback.canvas.IntersectClipRect(WmfRect(reader));
}
void MetaOffsetClipRgn(const Playback& playback, ByteReader& reader) { playback.canvas.OffsetClip(WmfPoint(reader)); }

void MetaMoveTo(const Playback& playback, ByteReader& reader) { playback.canvas.MoveTo(WmfPoint(reader)); }
void MetaLineTo(const Playback& playback, ByteReader& reader) { playback.canvas.LineTo(WmfPoint(reader)); }

void MetaPolyline(const Playback& playback, ByteReader& reader) {
  playback.canvas.Polyline(PointsOf16Bits(reader, reader.U16()));
}

void MetaPolygon(const Playback& playback, ByteReader& reader) {
  const std::vector<QPointF> points = PointsOf16Bits(reader, reader.U16());
  const std::size_t count = points.size();
  playback.canvas.PolyPolygon(points, {&count, 1});
}

void MetaPolyPolygon(const Playback& playback, ByteReader& reader) {
  std::vector<std::size_t> counts(reader.Capped(reader.U16(), 2));
  for (std::size_t& count : counts) count = reader.U16();
  playback.canvas.PolyPolygon(PointsOf16Bits(reader, reader.Left()), counts);
}

void MetaRectangle(const Playback& playback, ByteReader& reader) { playback.canvas.Rectangle(WmfRect(reader)); }
void MetaEllipse(const Playback& playback, ByteReader& reader) { playback.canvas.Ellipse(WmfRect(reader)); }
void MetaRoundRect(const Playback& playback, ByteReader& reader) {
  const QSizeF corner = WmfSize(reader);
  playback.canvas.RoundRect(WmfRect(reader), corner);
}

// META_ARC, META_CHORD, META_PIE.
template <ArcKind kind>
void MetaArc(const Playback& playback, ByteReader& reader) {
  const QPointF to = WmfPoint(reader);
  const QPointF from = WmfPoint(reader);
  playback.canvas.Arc(kind, WmfRect(reader), from, to);
}

void MetaSetPixel(const Playback& playback, ByteReader& reader) {
  const ColourReference colour = reader.U32();
  playback.canvas.SetPixel(WmfPoint(reader), colour);
}

void MetaFloodFill(const Playback& playback, ByteReader& reader) {
  const ColourReference colour = reader.U32();
  playback.canvas.FloodFill(WmfPoint(reader), colour, true);
}

void MetaExtFloodFill(const Playback& playback, ByteReader& reader) {
  const bool up_to_colour = reader.U16() == FLOODFILLBORDER;
  const ColourReference colour = reader.U32();
  playback.canvas.FloodFill(WmfPoint(reader), colour, up_to_colour);
}

// Strings are padded to 16-bit words.
std::size_t Padded(std::size_t count) { return (count + 1) / 2 * 2; }

void MetaTextOut(const Playback& playback, ByteReader& reader) {
  const std::size_t count = reader.U16();
  const ByteSpan bytes = reader.Piece(reader.At(), count);
  reader.Skip(Padded(count));
  TextRun run;
  run.at = WmfPoint(reader);
  run.text = DecodeText(bytes, playback.State().font);
  playback.canvas.Text(run);
}

void MetaExtTextOut(const Playback& playback, ByteReader& reader) {
  TextRun run;
  run.at = WmfPoint(reader);
  const std::size_t count = reader.U16();
  const unsigned options = reader.U16();
  run.fill_rect = (options & ETO_OPAQUE) != 0;
  run.clip_to_rect = (options & ETO_CLIPPED) != 0;
  if (run.fill_rect || run.clip_to_rect) {
    // Unlike other rectangles it is stored from the left to the bottom.
    const double left = reader.I16();
    const double top = reader.I16();
    const double right = reader.I16();
    const double bottom = reader.I16();
    run.rect = QRectF(QPointF(left, top), QPointF(right, bottom));
  }
  const ByteSpan bytes = reader.Piece(reader.At(), count);
  reader.Skip(Padded(count));
  const Font& font = playback.State().font;
  if ((options & ETO_GLYPH_INDEX) == 0) run.text = DecodeText(bytes, font);
  // In multi-byte code pages the advances are per byte and do not match the characters.
  if (reader.Left() >= count * 2 && !IsMultiByte(font)) {
    for (std::size_t i = 0; i < count; ++i) run.advances.push_back(reader.I16());
  }
  playback.canvas.Text(run);
}

constexpr RecordHandler kWmfRecords[] = {
    {META_SAVEDC, kPrepares, MetaSaveDc},
    {META_RESTOREDC, kPrepares, MetaRestoreDc},
    {META_SETBKMODE, kPrepares, MetaSetBkMode},
    {META_SETMAPMODE, kPrepares, MetaSetMapMode},
    {META_SETROP2, kPrepares, MetaSetRop2},
    {META_SETPOLYFILLMODE, kPrepares, MetaSetPolyFillMode},
    {META_SETSTRETCHBLTMODE, kPrepares, MetaSetStretchBltMode},
    {META_SETTEXTCHAREXTRA, kPrepares, MetaSetTextCharExtra},
    {META_SETTEXTALIGN, kPrepares, MetaSetTextAlign},
    {META_SETBKCOLOR, kPrepares, MetaSetBkColor},
    {META_SETTEXTCOLOR, kPrepares, MetaSetTextColor},
    {META_SETTEXTJUSTIFICATION, kPrepares, MetaSetTextJustification},
    {META_SETWINDOWORG, kPrepares, MetaSetWindowOrg},
    {META_SETWINDOWEXT, kPrepares, MetaSetWindowExt},
    {META_SETVIEWPORTORG, kPrepares, MetaSetViewportOrg},
    {META_SETVIEWPORTEXT, kPrepares, MetaSetViewportExt},
    {META_OFFSETWINDOWORG, kPrepares, MetaOffsetWindowOrg},
    {META_OFFSETVIEWPORTORG, kPrepares, MetaOffsetViewportOrg},
    {META_SCALEWINDOWEXT, kPrepares, MetaScaleWindowExt},
    {META_SCALEVIEWPORTEXT, kPrepares, MetaScaleViewportExt},
    {META_EXCLUDECLIPRECT, kPrepares, MetaExcludeClipRect},
    {META_INTERSECTCLIPRECT, kPrepares, MetaIntersectClipRect},
    {META_OFFSETCLIPRGN, kPrepares, MetaOffsetClipRgn},
    {META_MOVETO, kPrepares, MetaMoveTo},
    {META_LINETO, kDraws, MetaLineTo},
    {META_POLYLINE, kDraws, MetaPolyline},
    {META_POLYGON, kDraws, MetaPolygon},
    {META_POLYPOLYGON, kDraws, MetaPolyPolygon},
    {META_RECTANGLE, kDraws, MetaRectangle},
    {META_ELLIPSE, kDraws, MetaEllipse},
    {META_ROUNDRECT, kDraws, MetaRoundRect},
    {META_ARC, kDraws, MetaArc<ArcKind::kOpen>},
    {META_CHORD, kDraws, MetaArc<ArcKind::kChord>},
    {META_PIE, kDraws, MetaArc<ArcKind::kPie>},
    {META_SETPIXEL, kDraws, MetaSetPixel},
    {META_FLOODFILL, kDraws, MetaFloodFill},
    {META_EXTFLOODFILL, kDraws, MetaExtFloodFill},
    {META_TEXTOUT, kDraws, MetaTextOut},
    {META_EXTTEXTOUT, kDraws, MetaExtTextOut},
};

}  // namespace

std::span<const RecordHandler> WmfRecords() { return kWmfRecords; }

}  // namespace quorvale::metafile
