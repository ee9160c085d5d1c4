// Pens, brushes, fonts and palettes of EMF files.

#include "platform/desktop/metafile/emf_bitmaps.h"
#include "platform/desktop/metafile/emf_reading.h"
#include "platform/desktop/metafile/object_records.h"
#include "platform/desktop/metafile/playback.h"
#include "platform/desktop/metafile/text_decoding.h"

namespace quorvale {
namespace {

constexpr std::uint32_t kStock = 0x80000000U;
constexpr std::size_t kFaceNameSize = 64;

void SelectObject(const Playback& playback, ByteReader& reader) {
  const std::uint32_t place = reader.U32();
  playback.Select((place & kStock) != 0 ? StockObject(place & ~kStock) : playback.objects.Get(place));
}
void DeleteObject(const Playback& playback, ByteReader& reader) { playback.objects.Remove(reader.U32()); }

void CreatePen(const Playback& playback, ByteReader& reader) {
  const std::uint32_t place = reader.U32();
  const unsigned style = reader.U32();
  const double width = reader.I32();
  reader.Skip(4);
  playback.objects.Set(place, SimplePen(style, width, reader.U32()));
}

void CreateBrush(const Playback& playback, ByteReader& reader) {
  const std::uint32_t place = reader.U32();
  const unsigned style = reader.U32();
  const ColourReference colour = reader.U32();
  playback.objects.Set(place, SimpleBrush(style, colour, reader.U32()));
}

Dib ReadDibOf(const Playback& playback, ByteReader& reader, ColourTable table) {
  EmfBitmap bitmap;
  bitmap.table = table;
  bitmap.ReadPlace(reader);
  return bitmap.Read(playback, reader);
}

template <bool two_colours>
void CreatePatternBrush(const Playback& playback, ByteReader& reader) {
  const std::uint32_t place = reader.U32();
  const auto table = static_cast<ColourTable>(reader.U32());
  playback.objects.Set(place, PatternBrush(ReadDibOf(playback, reader, table).image, two_colours));
}

void CreateExtendedPen(const Playback& playback, ByteReader& reader) {
  constexpr unsigned kGeometric = 0x10000;
  const std::uint32_t place = reader.U32();
  ByteReader bitmap = reader;
  reader.Skip(16);
  const unsigned style = reader.U32();
  const double width = reader.U32();
  const unsigned brush_style = reader.U32();
  const ColourReference colour = reader.U32();
  const unsigned hatch = reader.U32();
  Pen pen = SimplePen(style, width, colour);
  pen.simple = false;
  pen.geometric = (style & kGeometric) != 0;
  enum : unsigned { kPattern = 3, kDibPattern = 5, kPointedDibPattern = 6 };
  if (brush_style == kPattern || brush_style == kDibPattern || brush_style == kPointedDibPattern) {
    pen.brush = PatternBrush(ReadDibOf(playback, bitmap, ColourTable::kColours).image, brush_style == kPattern);
  } else {
    pen.brush = SimpleBrush(brush_style, colour, hatch);
  }
  // More than any pen has.
  constexpr std::size_t kMostDashes = 64;
  const std::size_t count = std::min(reader.Capped(reader.U32(), 4), kMostDashes);
  for (std::size_t i = 0; i < count; ++i) pen.dashes.push_back(reader.U32());
  playback.objects.Set(place, pen);
}

void CreateFont(const Playback& playback, ByteReader& reader) {
  const std::uint32_t place = reader.U32();
  Font font;
  font.height = reader.I32();
  font.width = reader.I32();
  font.escapement = reader.I32();
  reader.Skip(4);
  font.weight = reader.I32();
  ReadFontFlags(font, reader);
  const ByteSpan name = reader.Rest();
  font.family = FamilyName(DecodeWide(name.first(std::min(name.size(), kFaceNameSize))));
  playback.objects.Set(place, font);
}

void CreatePalette(const Playback& playback, ByteReader& reader) {
  const std::uint32_t place = reader.U32();
  reader.Skip(2);
  playback.objects.Set(place, ReadPalette(reader, reader.U16()));
}

void SelectPalette(const Playback& playback, ByteReader& reader) {
  UsePalette(playback, playback.objects.Get(reader.U32()));
}

void SetPaletteEntries(const Playback& playback, ByteReader& reader) {
  const std::uint32_t place = reader.U32();
  const std::size_t start = reader.U32();
  const std::size_t count = reader.U32();
  const GdiObject object = playback.objects.Get(place);
  const auto* palette = std::get_if<std::shared_ptr<const Palette>>(&object);
  if (palette == nullptr) return;
  const auto changed = ChangedPalette(**palette, start, reader, count);
  if (playback.canvas.State().palette == *palette) playback.canvas.State().palette = changed;
  playback.objects.Set(place, changed);
}

constexpr RecordHandler kRecords[] = {
    {37, kPrepares, SelectObject},
    {38, kPrepares, CreatePen},
    {39, kPrepares, CreateBrush},
    {40, kPrepares, DeleteObject},
    {48, kPrepares, SelectPalette},
    {49, kPrepares, CreatePalette},
    {50, kPrepares, SetPaletteEntries},
    {82, kPrepares, CreateFont},
    {93, kPrepares, CreatePatternBrush<true>},
    {94, kPrepares, CreatePatternBrush<false>},
    {95, kPrepares, CreateExtendedPen},
};

}  // namespace

std::span<const RecordHandler> EmfObjectRecords() { return kRecords; }

}  // namespace quorvale
