// EMF records: state, objects, clipping and regions. Shapes, paths and text are in emf_shape_records.cpp, bitmaps in
// emf_bitmap_records.cpp.

#include <algorithm>

#include "platform/desktop/metafile/record_values.h"
#include "platform/desktop/metafile/records.h"
#include "platform/desktop/metafile/text_decoding.h"

namespace quorvale::metafile {
namespace {

void EmrSetWindowExtEx(const Playback& playback, ByteReader& reader) {
  const QSizeF extent = EmfSize(reader);
  playback.Map().SetWindowExtent(extent.width(), extent.height());
}
void EmrSetWindowOrgEx(const Playback& playback, ByteReader& reader) {
  playback.Map().SetWindowOrigin(EmfPoint(reader));
}
void EmrSetViewportExtEx(const Playback& playback, ByteReader& reader) {
  const QSizeF extent = EmfSize(reader);
  playback.Map().SetViewportExtent(extent.width(), extent.height());
}
void EmrSetViewportOrgEx(const Playback& playback, ByteReader& reader) {
  playback.Map().SetViewportOrigin(EmfPoint(reader));
}
// Numerator and denominator for x, then for y.
void EmrScaleWindowExtEx(const Playback& playback, ByteReader& reader) {
  const QPointF x = EmfPoint(reader);
  const QPointF y = EmfPoint(reader);
  playback.Map().ScaleWindowExtent(x.x(), x.y(), y.x(), y.y());
}
void EmrScaleViewportExtEx(const Playback& playback, ByteReader& reader) {
  const QPointF x = EmfPoint(reader);
  const QPointF y = EmfPoint(reader);
  playback.Map().ScaleViewportExtent(x.x(), x.y(), y.x(), y.y());
}
void EmrSetMapMode(const Playback& playback, ByteReader& reader) { playback.Map().SetMode(reader.I32()); }

void EmrSetWorldTransform(const Playback& playback, ByteReader& reader) {
  playback.Map().SetWorld(EmfTransform(reader));
}
void EmrModifyWorldTransform(const Playback& playback, ByteReader& reader) {
  enum : unsigned { MWT_IDENTITY = 1, MWT_LEFTMULTIPLY, MWT_RIGHTMULTIPLY, MWT_SET };
  const QTransform change = EmfTransform(reader);
  switch (reader.U32()) {
    case MWT_IDENTITY:
      playback.Map().SetWorld({});
      break;
    case MWT_LEFTMULTIPLY:
      playback.Map().SetWorld(change * playback.Map().World());
      break;
    case MWT_RIGHTMULTIPLY:
      playback.Map().SetWorld(playback.Map().World() * change);
      break;
    case MWT_SET:
      playback.Map().SetWorld(change);
      break;
    default:
      break;
  }
}

void EmrSaveDc(const Playback& playback, ByteReader& /*reader*/) { playback.canvas.SaveDc(); }
void EmrRestoreDc(const Playback& playback, ByteReader& reader) { playback.canvas.RestoreDc(reader.I32()); }

void EmrSetBrushOrgEx(const Playback& playback, ByteReader& reader) {
  playback.State().brush_origin = EmfPoint(reader);
}
void EmrSetBkMode(const Playback& playback, ByteReader& reader) {
  playback.State().opaque_background = reader.U32() != TRANSPARENT;
}
void EmrSetPolyFillMode(const Playback& playback, ByteReader& reader) {
  playback.State().fill_rule = reader.U32() == WINDING ? Qt::WindingFill : Qt::OddEvenFill;
}
void EmrSetRop2(const Playback& playback, ByteReader& reader) { playback.State().rop2 = reader.U32(); }
void EmrSetStretchBltMode(const Playback& playback, ByteReader& reader) {
  playback.State().halftone = reader.U32() == HALFTONE;
}
void EmrSetTextAlign(const Playback& playback, ByteReader& reader) { playback.State().text_align = reader.U32(); }
void EmrSetTextColor(const Playback& playback, ByteReader& reader) { playback.State().text_colour = reader.U32(); }
void EmrSetBkColor(const Playback& playback, ByteReader& reader) { playback.State().background = reader.U32(); }
void EmrSetArcDirection(const Playback& playback, ByteReader& reader) {
  enum : unsigned { AD_CLOCKWISE = 2 };
  playback.State().arcs_clockwise = reader.U32() == AD_CLOCKWISE;
}
void EmrSetMiterLimit(const Playback& playback, ByteReader& reader) {
  // Documented as a float, but written as an integer.
  const double limit = reader.U32();
  if (limit >= 1 && limit < 1000) playback.State().miter_limit = limit;
}
void EmrSetTextJustification(const Playback& playback, ByteReader& reader) {
  const double extra = reader.I32();
  const double blanks = reader.I32();
  playback.State().justification = blanks > 0 ? extra / blanks : 0;
}

// Objects. The highest bit of an index stands for a stock object.

GdiObject ObjectAt(const Playback& playback, std::uint32_t index) {
  constexpr std::uint32_t kStockObject = 0x80000000U;
  return (index & kStockObject) != 0 ? StockObject(index & ~kStockObject) : playback.objects.Get(index);
}

void EmrSelectObject(const Playback& playback, ByteReader& reader) {
  playback.Select(ObjectAt(playback, reader.U32()));
}
void EmrDeleteObject(const Playback& playback, ByteReader& reader) { playback.objects.Remove(reader.U32()); }

void EmrCreatePen(const Playback& playback, ByteReader& reader) {
  const std::uint32_t index = reader.U32();
  const unsigned style = reader.U32();
  const double width = reader.I32();
  reader.Skip(4);
  playback.objects.Set(index, MakeSimplePen(style, width, reader.U32()));
}

void EmrCreateBrushIndirect(const Playback& playback, ByteReader& reader) {
  const std::uint32_t index = reader.U32();
  const unsigned style = reader.U32();
  const ColourReference colour = reader.U32();
  playback.objects.Set(index, MakeSimpleBrush(style, colour, reader.U32()));
}

QImage ReadPattern(const Playback& playback, ByteReader& reader, ColorUsage usage) {
  EmfBitmap bitmap;
  bitmap.usage = usage;
  bitmap.ReadPlace(reader);
  return bitmap.Read(reader, playback.canvas.SelectedPalette()).image;
}

// EMR_CREATEMONOBRUSH, EMR_CREATEDIBPATTERNBRUSHPT.
template <bool two_colours>
void EmrCreatePatternBrush(const Playback& playback, ByteReader& reader) {
  const std::uint32_t index = reader.U32();
  const auto usage = static_cast<ColorUsage>(reader.U32());
  playback.objects.Set(index, MakePatternBrush(ReadPattern(playback, reader, usage), two_colours));
}

void EmrExtCreatePen(const Playback& playback, ByteReader& reader) {
  const std::uint32_t index = reader.U32();
  ByteReader bitmap = reader;
  reader.Skip(16);
  const unsigned style = reader.U32();
  const double width = reader.U32();
  const unsigned brush_style = reader.U32();
  const ColourReference colour = reader.U32();
  const unsigned hatch = reader.U32();
  Pen pen = MakeSimplePen(style, width, colour);
  pen.simple = false;
  pen.geometric = (style & PS_GEOMETRIC) != 0;
  if (brush_style == BS_PATTERN || brush_style == BS_DIBPATTERN || brush_style == BS_DIBPATTERNPT) {
    const QImage pattern = ReadPattern(playback, bitmap, ColorUsage::DIB_RGB_COLORS);
    pen.brush = MakePatternBrush(pattern, brush_style == BS_PATTERN);
  } else {
    pen.brush = MakeSimpleBrush(brush_style, colour, hatch);
  }
  // Programs may set up to 16.
  constexpr std::size_t kMostDashes = 64;
  const std::size_t count = std::min(reader.Capped(reader.U32(), 4), kMostDashes);
  for (std::size_t i = 0; i < count; ++i) pen.dashes.push_back(reader.U32());
  playback.objects.Set(index, pen);
}

void EmrExtCreateFontIndirectW(const Playback& playback, ByteReader& reader) {
  constexpr std::size_t kFaceNameSize = 64;
  const std::uint32_t index = reader.U32();
  Font font;
  font.height = reader.I32();
  font.width = reader.I32();
  font.escapement = reader.I32();
  // Orientation: the characters follow the escapement.
  reader.Skip(4);
  font.weight = reader.I32();
  ReadFontFlags(font, reader);
  const ByteSpan name = reader.Rest();
  font.family = FamilyName(DecodeWide(name.first(std::min(name.size(), kFaceNameSize))));
  playback.objects.Set(index, font);
}

void EmrCreatePalette(const Playback& playback, ByteReader& reader) {
  const std::uint32_t index = reader.U32();
  reader.Skip(2);
  playback.objects.Set(index, ReadPalette(reader, reader.U16()));
}

void EmrSelectPalette(const Playback& playback, ByteReader& reader) {
  playback.SelectPalette(playback.objects.Get(reader.U32()));
}

void EmrSetPaletteEntries(const Playback& playback, ByteReader& reader) {
  const std::uint32_t index = reader.U32();
  const std::size_t start = reader.U32();
  const std::size_t count = reader.U32();
  const GdiObject object = playback.objects.Get(index);
  const auto* palette = std::get_if<std::shared_ptr<const Palette>>(&object);
  if (palette == nullptr) return;
  const auto changed = ChangedPalette(**palette, start, reader, count);
  if (playback.State().palette == *palette) playback.State().palette = changed;
  playback.objects.Set(index, changed);
}

void EmrOffsetClipRgn(const Playback& playback, ByteReader& reader) { playback.canvas.OffsetClip(EmfPoint(reader)); }
void EmrExcludeClipRect(const Playback& playback, ByteReader& reader) {
  playback.canvas.ExcludeClipRect(EmfRect(reader));
}
void EmrIntersectClipRect(const Playback& playback, ByteReader& reader) {
  playback.canvas.IntersectClipRect(EmfRect(reader));
}
void EmrSetMetaRgn(const Playback& playback, ByteReader& /*reader*/) { playback.canvas.SetMetaRegion(); }

Region ReadRegion(ByteReader& reader, std::size_t size) { return EmfRegion(reader.Piece(reader.At(), size)); }

void EmrExtSelectClipRgn(const Playback& playback, ByteReader& reader) {
  const std::size_t size = reader.U32();
  const auto mode = static_cast<RegionMode>(reader.U32());
  if (size == 0 && mode == RGN_COPY) {
    playback.canvas.ResetClip();
  } else {
    playback.canvas.SelectClip(ReadRegion(reader, size), mode, false);
  }
}

void EmrFillRgn(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBoundsSize);
  const std::size_t size = reader.U32();
  const Brush brush = BrushOf(ObjectAt(playback, reader.U32()));
  playback.canvas.FillRegion(ReadRegion(reader, size), brush);
}

void EmrFrameRgn(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBoundsSize);
  const std::size_t size = reader.U32();
  const Brush brush = BrushOf(ObjectAt(playback, reader.U32()));
  const QSizeF frame = EmfSize(reader);
  playback.canvas.FrameRegion(ReadRegion(reader, size), brush, frame);
}

void EmrInvertRgn(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBoundsSize);
  const std::size_t size = reader.U32();
  playback.canvas.InvertRegion(ReadRegion(reader, size));
}

void EmrPaintRgn(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBoundsSize);
  const std::size_t size = reader.U32();
  playback.canvas.FillRegion(ReadRegion(reader, size), playback.State().brush);
}

constexpr RecordHandler kEmfRecords[] = {
    {EMR_SETWINDOWEXTEX, kPrepares, EmrSetWindowExtEx},
    {EMR_SETWINDOWORGEX, kPrepares, EmrSetWindowOrgEx},
    {EMR_SETVIEWPORTEXTEX, kPrepares, EmrSetViewportExtEx},
    {EMR_SETVIEWPORTORGEX, kPrepares, EmrSetViewportOrgEx},
    {EMR_SETBRUSHORGEX, kPrepares, EmrSetBrushOrgEx},
    {EMR_SETMAPMODE, kPrepares, EmrSetMapMode},
    {EMR_SETBKMODE, kPrepares, EmrSetBkMode},
    {EMR_SETPOLYFILLMODE, kPrepares, EmrSetPolyFillMode},
    {EMR_SETROP2, kPrepares, EmrSetRop2},
    {EMR_SETSTRETCHBLTMODE, kPrepares, EmrSetStretchBltMode},
    {EMR_SETTEXTALIGN, kPrepares, EmrSetTextAlign},
    {EMR_SETTEXTCOLOR, kPrepares, EmrSetTextColor},
    {EMR_SETBKCOLOR, kPrepares, EmrSetBkColor},
    {EMR_SCALEVIEWPORTEXTEX, kPrepares, EmrScaleViewportExtEx},
    {EMR_SCALEWINDOWEXTEX, kPrepares, EmrScaleWindowExtEx},
    {EMR_SAVEDC, kPrepares, EmrSaveDc},
    {EMR_RESTOREDC, kPrepares, EmrRestoreDc},
    {EMR_SETWORLDTRANSFORM, kPrepares, EmrSetWorldTransform},
    {EMR_MODIFYWORLDTRANSFORM, kPrepares, EmrModifyWorldTransform},
    {EMR_SETARCDIRECTION, kPrepares, EmrSetArcDirection},
    {EMR_SETMITERLIMIT, kPrepares, EmrSetMiterLimit},
    {EMR_SETTEXTJUSTIFICATION, kPrepares, EmrSetTextJustification},
    {EMR_SELECTOBJECT, kPrepares, EmrSelectObject},
    {EMR_CREATEPEN, kPrepares, EmrCreatePen},
    {EMR_CREATEBRUSHINDIRECT, kPrepares, EmrCreateBrushIndirect},
    {EMR_DELETEOBJECT, kPrepares, EmrDeleteObject},
    {EMR_SELECTPALETTE, kPrepares, EmrSelectPalette},
    {EMR_CREATEPALETTE, kPrepares, EmrCreatePalette},
    {EMR_SETPALETTEENTRIES, kPrepares, EmrSetPaletteEntries},
    {EMR_EXTCREATEFONTINDIRECTW, kPrepares, EmrExtCreateFontIndirectW},
    {EMR_CREATEMONOBRUSH, kPrepares, EmrCreatePatternBrush<true>},
    {EMR_CREATEDIBPATTERNBRUSHPT, kPrepares, EmrCreatePatternBrush<false>},
    {EMR_EXTCREATEPEN, kPrepares, EmrExtCreatePen},
    {EMR_OFFSETCLIPRGN, kPrepares, EmrOffsetClipRgn},
    {EMR_SETMETARGN, kPrepares, EmrSetMetaRgn},
    {EMR_EXCLUDECLIPRECT, kPrepares, EmrExcludeClipRect},
    {EMR_INTERSECTCLIPRECT, kPrepares, EmrIntersectClipRect},
    {EMR_EXTSELECTCLIPRGN, kPrepares, EmrExtSelectClipRgn},
    {EMR_FILLRGN, kDraws, EmrFillRgn},
    {EMR_FRAMERGN, kDraws, EmrFrameRgn},
    {EMR_INVERTRGN, kDraws, EmrInvertRgn},
    {EMR_PAINTRGN, kDraws, EmrPaintRgn},
};

}  // namespace

std::span<const RecordHandler> EmfRecords() { return kEmfRecords; }

}  // namespace quorvale::metafile
