// WMF records: pens, brushes, fonts, palettes, regions and bitmaps.

#include <algorithm>
#include <array>
#include <utility>

#include "platform/desktop/metafile/record_values.h"
#include "platform/desktop/metafile/records.h"
#include "platform/desktop/metafile/text_decoding.h"

namespace quorvale::metafile {
namespace {

Dib ReadDibOf(const Playback& playback, ByteReader& reader, ColorUsage usage, int rows = -1) {
  return ReadDib(
      {.info = reader.Rest(), .bits = {}, .usage = usage, .palette = playback.canvas.SelectedPalette(), .rows = rows});
}

void MetaSelectObject(const Playback& playback, ByteReader& reader) {
  playback.Select(playback.objects.Get(reader.U16()));
}
void MetaDeleteObject(const Playback& playback, ByteReader& reader) { playback.objects.Remove(reader.U16()); }

void MetaCreatePenIndirect(const Playback& playback, ByteReader& reader) {
  const unsigned style = reader.U16();
  const double width = reader.I16();
  reader.Skip(2);
  playback.objects.Add(MakeSimplePen(style, width, reader.U32()));
}

void MetaCreateBrushIndirect(const Playback& playback, ByteReader& reader) {
  const unsigned style = reader.U16();
  const ColourReference colour = reader.U32();
  playback.objects.Add(MakeSimpleBrush(style, colour, reader.U16()));
}

void MetaCreateFontIndirect(const Playback& playback, ByteReader& reader) {
  Font font;
  font.height = reader.I16();
  font.width = reader.I16();
  font.escapement = reader.I16();
  // Orientation: the characters follow the escapement.
  reader.Skip(2);
  font.weight = reader.I16();
  ReadFontFlags(font, reader);
  const ByteSpan rest = reader.Rest();
  const auto end = std::find(rest.begin(), rest.end(), 0);
  font.family = FamilyName(DecodeText(rest.first(static_cast<std::size_t>(end - rest.begin())), font));
  playback.objects.Add(font);
}

void MetaDibCreatePatternBrush(const Playback& playback, ByteReader& reader) {
  const unsigned style = reader.U16();
  const auto usage = static_cast<ColorUsage>(reader.U16());
  const Dib dib = ReadDibOf(playback, reader, usage);
  playback.objects.Add(MakePatternBrush(dib.image, style == BS_PATTERN && dib.depth == 1));
}

void MetaCreatePatternBrush(const Playback& playback, ByteReader& reader) {
  // A Bitmap16 object without its rows, padded, and then the rows.
  constexpr std::size_t kHeaderSize = 32;
  const std::size_t rows_at = reader.At() + kHeaderSize;
  playback.objects.Add(MakePatternBrush(ReadBitmap16(reader, rows_at, 0xFF000000U, 0xFFFFFFFFU), true));
}

// Objects that no record can use still take an index.
void MetaCreateNothing(const Playback& playback, ByteReader& /*reader*/) { playback.objects.Add(Region{}); }

void MetaCreatePalette(const Playback& playback, ByteReader& reader) {
  reader.Skip(2);
  playback.objects.Add(ReadPalette(reader, reader.U16()));
}

void MetaSelectPalette(const Playback& playback, ByteReader& reader) {
  playback.SelectPalette(playback.objects.Get(reader.U16()));
}

// META_SETPALENTRIES and META_ANIMATEPALETTE change the palette that is selected.
void MetaSetPalEntries(const Playback& playback, ByteReader& reader) {
  const std::size_t start = reader.U16();
  DeviceState& state = playback.State();
  if (state.palette == nullptr) return;
  const std::size_t count = reader.U16();
  state.palette = ChangedPalette(*state.palette, start, reader, count);
}

void MetaCreateRegion(const Playback& playback, ByteReader& reader) {
  reader.Skip(10);
  const std::size_t scans = reader.U16();
  // The longest scan and the bounds.
  reader.Skip(10);
  Region region;
  for (std::size_t scan = 0; scan < scans && reader.Left() >= 6; ++scan) {
    const std::size_t numbers = reader.U16();
    const double top = reader.I16();
    const double bottom = reader.I16();
    for (std::size_t i = 0; i + 1 < numbers && reader.Left() >= 4; i += 2) {
      const double left = reader.I16();
      const double right = reader.I16();
      region.rects.emplace_back(QPointF(left, top), QPointF(right, bottom));
    }
    // Repeats the count.
    reader.Skip(2);
  }
  playback.objects.Add(region);
}

const Region* RegionAt(const Playback& playback, std::uint32_t index) {
  return std::get_if<Region>(&playback.objects.Get(index));
}
void MetaSelectClipRegion(const Playback& playback, ByteReader& reader) {
  const Region* region = RegionAt(playback, reader.U16());
  if (region == nullptr) {
    playback.canvas.ResetClip();
  } else {
    playback.canvas.SelectClip(*region, RGN_COPY, true);
  }
}

// Some programs write the parameters of this record and the next from first to last. The index that is a region shows
// which way.
void MetaFillRegion(const Playback& playback, ByteReader& reader) {
  std::uint32_t first = reader.U16();
  std::uint32_t second = reader.U16();
  if (RegionAt(playback, first) == nullptr) std::swap(first, second);
  if (const Region* region = RegionAt(playback, first)) {
    playback.canvas.FillRegion(*region, BrushOf(playback.objects.Get(second)));
  }
}
void MetaFrameRegion(const Playback& playback, ByteReader& reader) {
  std::array<std::uint16_t, 4> numbers{};
  for (std::uint16_t& number : numbers) number = reader.U16();
  if (RegionAt(playback, numbers[0]) == nullptr) numbers = {numbers[3], numbers[2], numbers[0], numbers[1]};
  const double height = numbers[2];
  const double width = numbers[3];
  if (const Region* region = RegionAt(playback, numbers[0])) {
    playback.canvas.FrameRegion(*region, BrushOf(playback.objects.Get(numbers[1])), {width, height});
  }
}
void MetaPaintRegion(const Playback& playback, ByteReader& reader) {
  const Region* region = RegionAt(playback, reader.U16());
  if (region != nullptr) playback.canvas.FillRegion(*region, playback.State().brush);
}
void MetaInvertRegion(const Playback& playback, ByteReader& reader) {
  const Region* region = RegionAt(playback, reader.U16());
  if (region != nullptr) playback.canvas.InvertRegion(*region);
}

enum class BitmapKind { kBitmap16, kDib };

QImage ReadBitmap(const Playback& playback, ByteReader& reader, BitmapKind kind) {
  if (kind == BitmapKind::kDib) return ReadDibOf(playback, reader, ColorUsage::DIB_RGB_COLORS).image;
  constexpr std::size_t kHeaderSize = 10;
  const DeviceState& state = playback.State();
  return ReadBitmap16(reader, reader.At() + kHeaderSize, state.Colour(state.text_colour),
                      state.Colour(state.background));
}

// A blit without a bitmap is shorter than one with: `words` are its parameters without a reserved one.
bool HasBitmap(const ByteReader& reader, std::size_t words) { return reader.Left() > words * 2 + 2; }

// Height, width, top, left.
QRectF ReadTarget(ByteReader& reader) {
  const QSizeF size = WmfSize(reader);
  return {WmfPoint(reader), size};
}

void MetaPatBlt(const Playback& playback, ByteReader& reader) {
  BlitRequest request;
  request.op = TernaryOp(reader.U32());
  request.target = ReadTarget(reader);
  playback.canvas.Blit(request);
}

// META_BITBLT, META_DIBBITBLT.
template <BitmapKind kind>
void MetaBitBlt(const Playback& playback, ByteReader& reader) {
  const bool has_bitmap = HasBitmap(reader, 8);
  BlitRequest request;
  request.op = TernaryOp(reader.U32());
  const QPointF from = WmfPoint(reader);
  if (!has_bitmap) reader.Skip(2);
  request.target = ReadTarget(reader);
  if (has_bitmap) {
    request.source = ReadBitmap(playback, reader, kind);
    request.SetPart(QRectF(from, request.target.size()));
  }
  playback.canvas.Blit(request);
}

// META_STRETCHBLT, META_DIBSTRETCHBLT.
template <BitmapKind kind>
void MetaStretchBlt(const Playback& playback, ByteReader& reader) {
  const bool has_bitmap = HasBitmap(reader, 10);
  BlitRequest request;
  request.op = TernaryOp(reader.U32());
  const QSizeF size = WmfSize(reader);
  const QPointF from = WmfPoint(reader);
  if (!has_bitmap) reader.Skip(2);
  request.target = ReadTarget(reader);
  if (has_bitmap) {
    request.source = ReadBitmap(playback, reader, kind);
    request.SetPart(QRectF(from, size));
  }
  playback.canvas.Blit(request);
}

void MetaStretchDib(const Playback& playback, ByteReader& reader) {
  BlitRequest request;
  request.op = TernaryOp(reader.U32());
  const auto usage = static_cast<ColorUsage>(reader.U16());
  const QSizeF size = WmfSize(reader);
  const QPointF from = WmfPoint(reader);
  request.target = ReadTarget(reader);
  request.SetDibPart(ReadDibOf(playback, reader, usage), QRectF(from, size), 0);
  playback.canvas.Blit(request);
}

void MetaSetDibToDev(const Playback& playback, ByteReader& reader) {
  const auto usage = static_cast<ColorUsage>(reader.U16());
  const int rows = reader.U16();
  const int first_row = reader.U16();
  const QPointF from = WmfPoint(reader);
  BlitRequest request;
  request.target = ReadTarget(reader);
  request.SetDibPart(ReadDibOf(playback, reader, usage, rows), QRectF(from, request.target.size()), first_row);
  playback.canvas.Blit(request);
}

constexpr RecordHandler kWmfObjectRecords[] = {
    {META_SELECTOBJECT, kPrepares, MetaSelectObject},
    {META_DELETEOBJECT, kPrepares, MetaDeleteObject},
    {META_CREATEPENINDIRECT, kPrepares, MetaCreatePenIndirect},
    {META_CREATEBRUSHINDIRECT, kPrepares, MetaCreateBrushIndirect},
    {META_CREATEFONTINDIRECT, kPrepares, MetaCreateFontIndirect},
    {META_DIBCREATEPATTERNBRUSH, kPrepares, MetaDibCreatePatternBrush},
    {META_CREATEPATTERNBRUSH, kPrepares, MetaCreatePatternBrush},
    {META_CREATEBRUSH, kPrepares, MetaCreateNothing},
    {META_CREATEBITMAPINDIRECT, kPrepares, MetaCreateNothing},
    {META_CREATEBITMAP, kPrepares, MetaCreateNothing},
    {META_CREATEPALETTE, kPrepares, MetaCreatePalette},
    {META_SELECTPALETTE, kPrepares, MetaSelectPalette},
    {META_SETPALENTRIES, kPrepares, MetaSetPalEntries},
    {META_ANIMATEPALETTE, kPrepares, MetaSetPalEntries},
    {META_CREATEREGION, kPrepares, MetaCreateRegion},
    {META_SELECTCLIPREGION, kPrepares, MetaSelectClipRegion},
    {META_FILLREGION, kDraws, MetaFillRegion},
    {META_FRAMEREGION, kDraws, MetaFrameRegion},
    {META_PAINTREGION, kDraws, MetaPaintRegion},
    {META_INVERTREGION, kDraws, MetaInvertRegion},
    {META_PATBLT, kDraws, MetaPatBlt},
    {META_BITBLT, kDraws, MetaBitBlt<BitmapKind::kBitmap16>},
    {META_DIBBITBLT, kDraws, MetaBitBlt<BitmapKind::kDib>},
    {META_STRETCHBLT, kDraws, MetaStretchBlt<BitmapKind::kBitmap16>},
    {META_DIBSTRETCHBLT, kDraws, MetaStretchBlt<BitmapKind::kDib>},
    {META_STRETCHDIB, kDraws, MetaStretchDib},
    {META_SETDIBTODEV, kDraws, MetaSetDibToDev},
};

}  // namespace

std::span<const RecordHandler> WmfObjectRecords() { return kWmfObjectRecords; }

}  // namespace quorvale::metafile
