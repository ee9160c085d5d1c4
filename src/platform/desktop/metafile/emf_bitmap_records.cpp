// Bitmaps of EMF files.

#include "platform/desktop/metafile/emf_bitmaps.h"
#include "platform/desktop/metafile/emf_reading.h"
#include "platform/desktop/metafile/raster_op.h"

namespace quorvale {
namespace {

constexpr std::size_t kBounds = 16;

QRectF ReadTarget(ByteReader& reader) {
  const QPointF at = EmfPoint(reader);
  return {at, EmfSize(reader)};
}

// What BitBlt, StretchBlt and MaskBlt begin with.
struct BlitStart {
  BlitRequest request;
  unsigned op = 0;
  QPointF from;
  QTransform page;
  EmfBitmap bitmap;
};

BlitStart ReadStart(ByteReader& reader) {
  BlitStart start;
  reader.Skip(kBounds);
  start.request.target = ReadTarget(reader);
  start.op = reader.U32();
  start.request.op = TernaryOp(start.op);
  start.from = EmfPoint(reader);
  start.page = EmfTransform(reader);
  reader.Skip(4);
  start.bitmap.table = static_cast<ColourTable>(reader.U32());
  start.bitmap.ReadPlace(reader);
  return start;
}

void Finish(const Playback& playback, const ByteReader& reader, BlitStart& start, QSizeF size) {
  if (start.bitmap.Exists()) {
    start.request.source = start.bitmap.Read(playback, reader).image;
    start.request.SetPart(SourcePart(start.page, QRectF(start.from, size)));
  }
  playback.canvas.Blit(start.request);
}

void BitBlit(const Playback& playback, ByteReader& reader) {
  BlitStart start = ReadStart(reader);
  Finish(playback, reader, start, start.request.target.size());
}

void StretchBlit(const Playback& playback, ByteReader& reader) {
  BlitStart start = ReadStart(reader);
  Finish(playback, reader, start, EmfSize(reader));
}

void ReadMask(const Playback& playback, ByteReader& reader, BlitRequest& request) {
  request.mask_at = EmfPoint(reader);
  EmfBitmap mask;
  mask.table = static_cast<ColourTable>(reader.U32());
  mask.ReadPlace(reader);
  if (mask.Exists()) request.mask = mask.Read(playback, reader).image;
}

void MaskBlit(const Playback& playback, ByteReader& reader) {
  BlitStart start = ReadStart(reader);
  start.request.masked_op = start.op >> 24U;
  ReadMask(playback, reader, start.request);
  Finish(playback, reader, start, start.request.target.size());
}

void ParallelogramBlit(const Playback& playback, ByteReader& reader) {
  BlitRequest request;
  reader.Skip(kBounds);
  for (int i = 0; i < 3; ++i) request.corners << EmfPoint(reader);
  const QPointF from = EmfPoint(reader);
  const QSizeF size = EmfSize(reader);
  const QTransform page = EmfTransform(reader);
  reader.Skip(4);
  EmfBitmap bitmap;
  bitmap.table = static_cast<ColourTable>(reader.U32());
  bitmap.ReadPlace(reader);
  ReadMask(playback, reader, request);
  request.source = bitmap.Read(playback, reader).image;
  request.part = SourcePart(page, QRectF(from, size));
  playback.canvas.Blit(request);
}

void SetDib(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBounds);
  const QPointF at = EmfPoint(reader);
  const QPointF from = EmfPoint(reader);
  const QSizeF size = EmfSize(reader);
  EmfBitmap bitmap;
  bitmap.ReadPlace(reader);
  bitmap.table = static_cast<ColourTable>(reader.U32());
  const int start = reader.I32();
  const int rows = reader.I32();
  BlitRequest request;
  // Its size is in pixels of the device, whatever a unit is.
  const QTransform map = playback.canvas.State().mapping.ToDevice();
  if (!map.isInvertible()) return;
  const QPointF device = map.map(at);
  const QTransform back = map.inverted();
  for (const QPointF& corner : {QPointF(0, 0), QPointF(size.width(), 0), QPointF(0, size.height())}) {
    request.corners << back.map(device + corner);
  }
  request.SetDibPart(bitmap.Read(playback, reader, false, std::max(0, rows)), QRectF(from, size), start);
  playback.canvas.Blit(request);
}

void StretchDib(const Playback& playback, ByteReader& reader) {
  reader.Skip(kBounds);
  const QPointF at = EmfPoint(reader);
  const QPointF from = EmfPoint(reader);
  const QSizeF size = EmfSize(reader);
  EmfBitmap bitmap;
  bitmap.ReadPlace(reader);
  bitmap.table = static_cast<ColourTable>(reader.U32());
  BlitRequest request;
  request.op = TernaryOp(reader.U32());
  request.target = QRectF(at, EmfSize(reader));
  request.SetDibPart(bitmap.Read(playback, reader), QRectF(from, size), 0);
  playback.canvas.Blit(request);
}

constexpr RecordHandler kRecords[] = {
    {76, kDraws, BitBlit},           {77, kDraws, StretchBlit}, {78, kDraws, MaskBlit},
    {79, kDraws, ParallelogramBlit}, {80, kDraws, SetDib},      {81, kDraws, StretchDib},
};

}  // namespace

std::span<const RecordHandler> EmfBitmapRecords() { return kRecords; }

}  // namespace quorvale
