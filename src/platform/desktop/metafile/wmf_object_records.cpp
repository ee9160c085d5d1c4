// Pens, brushes, fonts, palettes and regions of WMF files.

#include <algorithm>
#include <array>
#include <utility>

#include "platform/desktop/metafile/dib.h"
#include "platform/desktop/metafile/object_records.h"
#include "platform/desktop/metafile/playback.h"
#include "platform/desktop/metafile/text_decoding.h"

namespace quorvale {
namespace {

constexpr unsigned kPatternStyle = 3;

void SelectObject(const Playback& playback, ByteReader& reader) { playback.Select(playback.objects.Get(reader.U16())); }
void DeleteObject(const Playback& playback, ByteReader& reader) { playback.objects.Remove(reader.U16()); }

void CreatePen(const Playback& playback, ByteReader& reader) {
  const unsigned style = reader.U16();
  const double width = reader.I16();
  reader.Skip(2);
  playback.objects.Add(SimplePen(style, width, reader.U32()));
}

void CreateBrush(const Playback& playback, ByteReader& reader) {
  const unsigned style = reader.U16();
  const ColourReference colour = reader.U32();
  playback.objects.Add(SimpleBrush(style, colour, reader.U16()));
}

void CreateFont(const Playback& playback, ByteReader& reader) {
  Font font;
  font.height = reader.I16();
  font.width = reader.I16();
  font.escapement = reader.I16();
  reader.Skip(2);
  font.weight = reader.I16();
  ReadFontFlags(font, reader);
  const ByteSpan rest = reader.Rest();
  const auto end = std::find(rest.begin(), rest.end(), 0);
  font.family = FamilyName(DecodeText(rest.first(static_cast<std::size_t>(end - rest.begin())), font));
  playback.objects.Add(font);
}

void CreatePatternBrush(const Playback& playback, ByteReader& reader) {
  const unsigned style = reader.U16();
  DibSource source{.info = {},
                   .bits = {},
                   .table = static_cast<ColourTable>(reader.U16()),
                   .palette = playback.canvas.State().palette.get()};
  source.info = reader.Rest();
  Dib dib = ReadDib(source);
  const bool two_colours = style == kPatternStyle && dib.depth == 1;
  playback.objects.Add(PatternBrush(dib.image, two_colours));
}

// The brush of the first days: a bitmap of the device, its rows behind 18 bytes that mean nothing.
void CreateDevicePatternBrush(const Playback& playback, ByteReader& reader) {
  constexpr std::size_t kHeaderSize = 32;
  const std::size_t rows_at = reader.At() + kHeaderSize;
  playback.objects.Add(PatternBrush(ReadDeviceBitmap(reader, rows_at, 0xFF000000U, 0xFFFFFFFFU), true));
}

void CreatePalette(const Playback& playback, ByteReader& reader) {
  reader.Skip(2);
  playback.objects.Add(ReadPalette(reader, reader.U16()));
}

void SelectPalette(const Playback& playback, ByteReader& reader) {
  UsePalette(playback, playback.objects.Get(reader.U16()));
}

void SetPaletteEntries(const Playback& playback, ByteReader& reader) {
  const std::size_t start = reader.U16();
  DeviceState& state = playback.canvas.State();
  if (state.palette == nullptr) return;
  const std::size_t count = reader.U16();
  state.palette = ChangedPalette(*state.palette, start, reader, count);
}

void CreateRegion(const Playback& playback, ByteReader& reader) {
  reader.Skip(10);
  const std::size_t scans = reader.U16();
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
    reader.Skip(2);
  }
  playback.objects.Add(region);
}

const Region* RegionAt(const Playback& playback, std::uint32_t place) {
  return std::get_if<Region>(&playback.objects.Get(place));
}
Brush BrushAt(const Playback& playback, std::uint32_t place) {
  const auto* brush = std::get_if<Brush>(&playback.objects.Get(place));
  return brush == nullptr ? Brush{.style = Brush::Style::kNone} : *brush;
}

void SelectClipRegion(const Playback& playback, ByteReader& reader) {
  playback.canvas.SelectClip(RegionAt(playback, reader.U16()), ClipMode::kCopy, true);
}
// Writers don't agree which comes first, the region or the brush, as they do elsewhere.
void FillRegion(const Playback& playback, ByteReader& reader) {
  std::uint32_t first = reader.U16();
  std::uint32_t second = reader.U16();
  if (RegionAt(playback, first) == nullptr) std::swap(first, second);
  if (const Region* region = RegionAt(playback, first)) {
    playback.canvas.FillRegion(*region, BrushAt(playback, second));
  }
}
void FrameRegion(const Playback& playback, ByteReader& reader) {
  std::array<std::uint16_t, 4> numbers{};
  for (std::uint16_t& number : numbers) number = reader.U16();
  if (RegionAt(playback, numbers[0]) == nullptr) numbers = {numbers[3], numbers[2], numbers[0], numbers[1]};
  const double height = numbers[2];
  const double width = numbers[3];
  if (const Region* region = RegionAt(playback, numbers[0])) {
    playback.canvas.FrameRegion(*region, BrushAt(playback, numbers[1]), {width, height});
  }
}
void PaintRegion(const Playback& playback, ByteReader& reader) {
  const Region* region = RegionAt(playback, reader.U16());
  if (region != nullptr) playback.canvas.FillRegion(*region, playback.canvas.State().brush);
}
void InvertRegion(const Playback& playback, ByteReader& reader) {
  const Region* region = RegionAt(playback, reader.U16());
  if (region != nullptr) playback.canvas.InvertRegion(*region);
}

// Made, but of no use here: it takes its place among the objects.
void CreateNothing(const Playback& playback, ByteReader& /*reader*/) { playback.objects.Add(Region{}); }

constexpr RecordHandler kRecords[] = {
    {0x012D, kPrepares, SelectObject},
    {0x01F0, kPrepares, DeleteObject},
    {0x02FA, kPrepares, CreatePen},
    {0x02FC, kPrepares, CreateBrush},
    {0x02FB, kPrepares, CreateFont},
    {0x0142, kPrepares, CreatePatternBrush},
    {0x01F9, kPrepares, CreateDevicePatternBrush},
    {0x00F8, kPrepares, CreateNothing},
    {0x02FD, kPrepares, CreateNothing},
    {0x06FE, kPrepares, CreateNothing},
    {0x00F7, kPrepares, CreatePalette},
    {0x0234, kPrepares, SelectPalette},
    {0x0037, kPrepares, SetPaletteEntries},
    {0x0436, kPrepares, SetPaletteEntries},
    {0x06FF, kPrepares, CreateRegion},
    {0x012C, kPrepares, SelectClipRegion},
    {0x0228, kDraws, FillRegion},
    {0x0429, kDraws, FrameRegion},
    {0x012B, kDraws, PaintRegion},
    {0x012A, kDraws, InvertRegion},
};

}  // namespace

std::span<const RecordHandler> WmfObjectRecords() { return kRecords; }

}  // namespace quorvale
