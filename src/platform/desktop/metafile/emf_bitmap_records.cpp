// EMF records: bitmaps, blends and gradients.

#include <algorithm>
#include <array>
#include <vector>

#include "platform/desktop/metafile/record_values.h"
#include "platform/desktop/metafile/records.h"

namespace quorvale::metafile {
namespace {

constexpr std::size_t kBackgroundColourSize = 4;

Dib ReadDibOf(const Playback& playback, const ByteReader& reader, const EmfBitmap& bitmap, int rows = -1) {
  return bitmap.Read(reader, playback.canvas.SelectedPalette(), false, rows);
}

// A source rectangle is in the units of the device context that the bitmap was in; the record holds its transform.
QRectF SourcePart(const QTransform& transform, const QRectF& rect) {
  return transform.isInvertible() && transform.type() <= QTransform::TxScale ? transform.mapRect(rect) : rect;
}

// What EMR_BITBLT, EMR_STRETCHBLT, EMR_MASKBLT, EMR_ALPHABLEND and EMR_TRANSPARENTBLT begin with.
struct BlitStart {
  QRectF target;
  // A raster operation, a blend function or a colour.
  std::uint32_t parameter = 0;
  QPointF from;
  QTransform transform;
  EmfBitmap bitmap;
};

BlitStart ReadStart(ByteReader& reader) {
  BlitStart start;
  reader.Skip(kBoundsSize);
  start.target = EmfPlace(reader);
  start.parameter = reader.U32();
  start.from = EmfPoint(reader);
  start.transform = EmfTransform(reader);
  reader.Skip(kBackgroundColourSize);
  start.bitmap.usage = static_cast<ColorUsage>(reader.U32());
  start.bitmap.ReadPlace(reader);
  return start;
}

// Blits by the raster operation of `start`, with a source rectangle of that size.
void BlitByRasterOp(const Playback& playback, const ByteReader& reader, const BlitStart& start, QSizeF size,
                    BlitRequest request) {
  request.target = start.target;
  request.op = TernaryOp(start.parameter);
  if (start.bitmap.Exists()) {
    request.source = ReadDibOf(playback, reader, start.bitmap).image;
    request.SetPart(SourcePart(start.transform, QRectF(start.from, size)));
  }
  playback.canvas.Blit(request);
}

void EmrBitBlt(const Playback& playback, ByteReader& reader) {
  const BlitStart start = ReadStart(reader);
  BlitByRasterOp(playback, reader, start, start.target.size(), {});
}

void EmrStretchBlt(const Playback& playback, ByteReader& reader) {
  const BlitStart start = ReadStart(reader);
  const QSizeF size = EmfSize(reader);
  BlitByRasterOp(playback, reader, start, size, {});
}

void ReadMask(const Playback& playback, ByteReader& reader, BlitRequest& request) {
  request.mask_at = EmfPoint(reader);
  EmfBitmap mask;
  mask.usage = static_cast<ColorUsage>(reader.U32());
  mask.ReadPlace(reader);
  if (mask.Exists()) request.mask = ReadDibOf(playback, reader, mask).image;
}

void EmrMaskBlt(const Playback& playback, ByteReader& reader) {
  const BlitStart start = ReadStart(reader);
  BlitRequest request;
  request.masked_op = start.parameter >> 24U;
  ReadMask(playback, reader, request);
  BlitByRasterOp(playback, reader, start, start.target.size(), request);
}

void EmrPlgBlt(const Playback& playback, ByteReader& reader) {
  BlitRequest request;
  reader.Skip(kBoundsSize);
  for (int i = 0; i < 3; ++i) request.corners << EmfPoint(reader);
  const QRectF part = EmfPlace(reader);
  const QTransform transform = EmfTransform(reader);
  reader.Skip(kBackgroundColourSize);
  EmfBitmap bitmap;
  bitmap.usage = static_cast<ColorUsage>(reader.U32());
  bitmap.ReadPlace(reader);
  ReadMask(playback, reader, request);
  request.source = ReadDibOf(playback, reader, bitmap).image;
  request.part = SourcePart(transform, part);
  playback.canvas.Blit(request);
}

// What EMR_SETDIBITSTODEVICE and EMR_STRETCHDIBITS begin with.
struct DibitsStart {
  QPointF at;
  QRectF part;
  EmfBitmap bitmap;
};

DibitsStart ReadDibitsStart(ByteReader& reader) {
  DibitsStart start;
  reader.Skip(kBoundsSize);
  start.at = EmfPoint(reader);
  start.part = EmfPlace(reader);
  start.bitmap.ReadPlace(reader);
  start.bitmap.usage = static_cast<ColorUsage>(reader.U32());
  return start;
}

void EmrSetDibitsToDevice(const Playback& playback, ByteReader& reader) {
  const auto [at, part, bitmap] = ReadDibitsStart(reader);
  const int first_row = reader.I32();
  const int rows = reader.I32();
  BlitRequest request;
  // The size is in device pixels whatever the mapping, but the canvas expects logical units.
  const QTransform map = playback.Map().ToDevice();
  if (!map.isInvertible()) return;
  const QPointF device = map.map(at);
  const QTransform back = map.inverted();
  for (const QPointF& corner : {QPointF(0, 0), QPointF(part.width(), 0), QPointF(0, part.height())}) {
    request.corners << back.map(device + corner);
  }
  request.SetDibPart(ReadDibOf(playback, reader, bitmap, std::max(0, rows)), part, first_row);
  playback.canvas.Blit(request);
}

void EmrStretchDibits(const Playback& playback, ByteReader& reader) {
  const auto [at, part, bitmap] = ReadDibitsStart(reader);
  BlitRequest request;
  request.op = TernaryOp(reader.U32());
  request.target = QRectF(at, EmfSize(reader));
  request.SetDibPart(ReadDibOf(playback, reader, bitmap), part, 0);
  playback.canvas.Blit(request);
}

BlitRequest BlendRequest(ByteReader& reader, const BlitStart& start) {
  BlitRequest request;
  request.target = start.target;
  request.part = SourcePart(start.transform, QRectF(start.from, EmfSize(reader)));
  return request;
}

void EmrAlphaBlend(const Playback& playback, ByteReader& reader) {
  enum : unsigned { AC_SRC_ALPHA = 1 };
  const BlitStart start = ReadStart(reader);
  BlitRequest request = BlendRequest(reader, start);
  request.opacity = (start.parameter >> 16U & 0xFFU) / 255.0;
  const bool alpha = start.parameter >> 24U == AC_SRC_ALPHA;
  Dib dib = start.bitmap.Read(reader, playback.canvas.SelectedPalette(), alpha);
  if (alpha && dib.depth != 32) dib = ReadDibOf(playback, reader, start.bitmap);
  request.source = dib.image;
  playback.canvas.Blit(request);
}

void EmrTransparentBlt(const Playback& playback, ByteReader& reader) {
  const BlitStart start = ReadStart(reader);
  BlitRequest request = BlendRequest(reader, start);
  QImage image = ReadDibOf(playback, reader, start.bitmap).image;
  if (image.isNull()) return;
  const QRgb transparent = playback.State().Colour(start.parameter) & 0xFFFFFFU;
  image.convertTo(QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < image.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    std::replace_if(
        row, row + image.width(), [&](QRgb pixel) { return (pixel & 0xFFFFFFU) == transparent; }, QRgb{0});
  }
  request.source = image;
  playback.canvas.Blit(request);
}

void EmrGradientFill(const Playback& playback, ByteReader& reader) {
  enum : unsigned { GRADIENT_FILL_RECT_V = 1, GRADIENT_FILL_TRIANGLE };
  constexpr std::size_t kTriVertexSize = 16;
  reader.Skip(kBoundsSize);
  const std::size_t vertex_count = reader.U32();
  const std::size_t mesh_count = reader.U32();
  const unsigned mode = reader.U32();
  std::vector<GradientVertex> vertices(reader.Capped(vertex_count, kTriVertexSize));
  for (GradientVertex& vertex : vertices) {
    vertex.at = EmfPoint(reader);
    // Channels have 16 bits.
    const int red = reader.U16() >> 8U;
    const int green = reader.U16() >> 8U;
    const int blue = reader.U16() >> 8U;
    reader.Skip(2);
    vertex.colour = qRgb(red, green, blue);
  }
  const std::size_t corner_count = mode == GRADIENT_FILL_TRIANGLE ? 3 : 2;
  for (std::size_t i = reader.Capped(mesh_count, corner_count * 4); i > 0 && !playback.canvas.OutOfTime(); --i) {
    std::array<GradientVertex, 3> corners;
    bool known = true;
    for (std::size_t corner = 0; corner < corner_count; ++corner) {
      const std::size_t index = reader.U32();
      known = known && index < vertices.size();
      if (known) corners[corner] = vertices[index];
    }
    if (!known) continue;
    if (mode == GRADIENT_FILL_TRIANGLE) {
      playback.canvas.GradientTriangle(corners);
    } else {
      playback.canvas.GradientRect(std::span(corners).first<2>(), mode == GRADIENT_FILL_RECT_V);
    }
  }
}

constexpr RecordHandler kEmfBitmapRecords[] = {
    {EMR_BITBLT, kDraws, EmrBitBlt},
    {EMR_STRETCHBLT, kDraws, EmrStretchBlt},
    {EMR_MASKBLT, kDraws, EmrMaskBlt},
    {EMR_PLGBLT, kDraws, EmrPlgBlt},
    {EMR_SETDIBITSTODEVICE, kDraws, EmrSetDibitsToDevice},
    {EMR_STRETCHDIBITS, kDraws, EmrStretchDibits},
    {EMR_ALPHABLEND, kDraws, EmrAlphaBlend},
    {EMR_TRANSPARENTBLT, kDraws, EmrTransparentBlt},
    {EMR_GRADIENTFILL, kDraws, EmrGradientFill},
};

}  // namespace

std::span<const RecordHandler> EmfBitmapRecords() { return kEmfBitmapRecords; }

}  // namespace quorvale::metafile
