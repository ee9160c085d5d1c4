// Bitmaps of WMF files.

#include "platform/desktop/metafile/dib.h"
#include "platform/desktop/metafile/playback.h"
#include "platform/desktop/metafile/raster_op.h"
#include "platform/desktop/metafile/wmf_reading.h"

namespace quorvale {
namespace {

// The size of a record that blits without a bitmap says so, in words behind the head.
bool HasBitmap(const ByteReader& reader, std::size_t words) { return reader.Left() > words * 2 + 2; }

QRectF ReadTarget(ByteReader& reader) {
  const QPointF size = WmfPoint(reader);
  return {WmfPoint(reader), QSizeF(size.x(), size.y())};
}

Dib ReadDibOf(const Playback& playback, ByteReader& reader, ColourTable table, int rows = -1) {
  return ReadDib({.info = reader.Rest(),
                  .bits = {},
                  .table = table,
                  .palette = playback.canvas.State().palette.get(),
                  .rows = rows});
}

QImage ReadBitmap(const Playback& playback, ByteReader& reader) {
  constexpr std::size_t kHeaderSize = 10;
  const DeviceState& state = playback.canvas.State();
  return ReadDeviceBitmap(reader, reader.At() + kHeaderSize, state.Colour(state.text_colour),
                          state.Colour(state.background));
}

void PatternBlit(const Playback& playback, ByteReader& reader) {
  BlitRequest request;
  request.op = TernaryOp(reader.U32());
  request.target = ReadTarget(reader);
  playback.canvas.Blit(request);
}

template <bool device>
void BitBlit(const Playback& playback, ByteReader& reader) {
  const bool has_bitmap = HasBitmap(reader, 8);
  BlitRequest request;
  request.op = TernaryOp(reader.U32());
  const QPointF from = WmfPoint(reader);
  if (!has_bitmap) reader.Skip(2);
  request.target = ReadTarget(reader);
  if (has_bitmap) {
    request.source = device ? ReadBitmap(playback, reader) : ReadDibOf(playback, reader, ColourTable::kColours).image;
    request.SetPart(QRectF(from, request.target.size()));
  }
  playback.canvas.Blit(request);
}

template <bool device>
void StretchBlit(const Playback& playback, ByteReader& reader) {
  const bool has_bitmap = HasBitmap(reader, 10);
  BlitRequest request;
  request.op = TernaryOp(reader.U32());
  const QPointF size = WmfPoint(reader);
  const QPointF from = WmfPoint(reader);
  if (!has_bitmap) reader.Skip(2);
  request.target = ReadTarget(reader);
  if (has_bitmap) {
    request.source = device ? ReadBitmap(playback, reader) : ReadDibOf(playback, reader, ColourTable::kColours).image;
    request.SetPart(QRectF(from, QSizeF(size.x(), size.y())));
  }
  playback.canvas.Blit(request);
}

void StretchDib(const Playback& playback, ByteReader& reader) {
  BlitRequest request;
  request.op = TernaryOp(reader.U32());
  const auto table = static_cast<ColourTable>(reader.U16());
  const QPointF size = WmfPoint(reader);
  const QPointF from = WmfPoint(reader);
  request.target = ReadTarget(reader);
  request.SetDibPart(ReadDibOf(playback, reader, table), QRectF(from, QSizeF(size.x(), size.y())), 0);
  playback.canvas.Blit(request);
}

void SetDib(const Playback& playback, ByteReader& reader) {
  const auto table = static_cast<ColourTable>(reader.U16());
  const int rows = reader.U16();
  const int start = reader.U16();
  const QPointF from = WmfPoint(reader);
  BlitRequest request;
  request.target = ReadTarget(reader);
  request.SetDibPart(ReadDibOf(playback, reader, table, rows), QRectF(from, request.target.size()), start);
  playback.canvas.Blit(request);
}

constexpr RecordHandler kRecords[] = {
    {0x061D, kDraws, PatternBlit},
    {0x0922, kDraws, BitBlit<true>},
    {0x0940, kDraws, BitBlit<false>},
    {0x0B23, kDraws, StretchBlit<true>},
    {0x0B41, kDraws, StretchBlit<false>},
    {0x0F43, kDraws, StretchDib},
    {0x0D33, kDraws, SetDib},
};

}  // namespace

std::span<const RecordHandler> WmfBitmapRecords() { return kRecords; }

}  // namespace quorvale
