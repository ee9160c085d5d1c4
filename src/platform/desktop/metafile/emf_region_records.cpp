// Clipping and regions of EMF files.

#include "platform/desktop/metafile/emf_reading.h"
#include "platform/desktop/metafile/playback.h"

namespace quorvale {
namespace {

constexpr std::size_t kBounds = 16;

void OffsetClip(const Playback& playback, ByteReader& reader) { playback.canvas.OffsetClip(EmfPoint(reader)); }
void ExcludeClip(const Playback& playback, ByteReader& reader) { playback.canvas.ExcludeClip(EmfRect(reader)); }
void IntersectClip(const Playback& playback, ByteReader& reader) { playback.canvas.IntersectClip(EmfRect(reader)); }
void KeepClip(const Playback& playback, ByteReader& /*reader*/) { playback.canvas.KeepClip(); }

void SelectClip(const Playback& playback, ByteReader& reader) {
  const std::size_t size = reader.U32();
  const auto mode = static_cast<ClipMode>(reader.U32());
  if (size == 0 && mode == ClipMode::kCopy) {
    playback.canvas.SelectClip(nullptr, mode, false);
    return;
  }
  const Region region = EmfRegion(reader.Piece(reader.At(), size));
  playback.canvas.SelectClip(&region, mode, false);
}

Region ReadRegion(ByteReader& reader, std::size_t size) { return EmfRegion(reader.Piece(reader.At(), size)); }

Brush BrushAt(const Playback& playback, std::uint32_t place) {
  constexpr std::uint32_t kStock = 0x80000000U;
  const GdiObject object = (place & kStock) != 0 ? StockObject(place & ~kStock) : playback.objects.Get(place);
  const auto* brush = std::get_if<Brush>(&object);
  return brush == nullptr ? Brush{.style = Brush::Style::kNone} : *brush;
}

void FillRegion(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBounds);
  const std::size_t size = reader.U32();
  const Brush brush = BrushAt(playback, reader.U32());
  playback.canvas.FillRegion(ReadRegion(reader, size), brush);
}

void FrameRegion(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBounds);
  const std::size_t size = reader.U32();
  const Brush brush = BrushAt(playback, reader.U32());
  const QSizeF frame = EmfSize(reader);
  playback.canvas.FrameRegion(ReadRegion(reader, size), brush, frame);
}

void InvertRegion(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBounds);
  const std::size_t size = reader.U32();
  playback.canvas.InvertRegion(ReadRegion(reader, size));
}

void PaintRegion(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBounds);
  const std::size_t size = reader.U32();
  playback.canvas.FillRegion(ReadRegion(reader, size), playback.canvas.State().brush);
}

constexpr RecordHandler kRecords[] = {
    {26, kPrepares, OffsetClip},    {28, kPrepares, KeepClip},   {29, kPrepares, ExcludeClip},
    {30, kPrepares, IntersectClip}, {75, kPrepares, SelectClip}, {71, kDraws, FillRegion},
    {72, kDraws, FrameRegion},      {73, kDraws, InvertRegion},  {74, kDraws, PaintRegion},
};

}  // namespace

std::span<const RecordHandler> EmfRegionRecords() { return kRecords; }

}  // namespace quorvale
