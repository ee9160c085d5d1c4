// Transparent bitmaps and changing colours of EMF files.

#include <algorithm>
#include <array>
#include <vector>

#include "platform/desktop/metafile/emf_bitmaps.h"
#include "platform/desktop/metafile/emf_reading.h"

namespace quorvale {
namespace {

constexpr std::size_t kBounds = 16;

// What both records share.
struct Blend {
  BlitRequest request;
  // The blend function, or the colour that is left out.
  std::uint32_t parameter = 0;
  QTransform page;
  QPointF from;
  QSizeF size;
  EmfBitmap bitmap;
};

Blend ReadBlend(ByteReader& reader) {
  Blend blend;
  reader.Skip(kBounds);
  const QPointF at = EmfPoint(reader);
  blend.request.target = QRectF(at, EmfSize(reader));
  blend.parameter = reader.U32();
  blend.from = EmfPoint(reader);
  blend.page = EmfTransform(reader);
  reader.Skip(4);
  blend.bitmap.table = static_cast<ColourTable>(reader.U32());
  blend.bitmap.ReadPlace(reader);
  blend.size = EmfSize(reader);
  blend.request.part = SourcePart(blend.page, QRectF(blend.from, blend.size));
  return blend;
}

void AlphaBlend(const Playback& playback, ByteReader& reader) {
  Blend blend = ReadBlend(reader);
  constexpr unsigned kSourceAlpha = 1;
  blend.request.opacity = (blend.parameter >> 16U & 0xFFU) / 255.0;
  const bool alpha = blend.parameter >> 24U == kSourceAlpha;
  Dib dib = blend.bitmap.Read(playback, reader, alpha);
  if (alpha && dib.depth != 32) dib = blend.bitmap.Read(playback, reader);
  blend.request.source = dib.image;
  playback.canvas.Blit(blend.request);
}

void TransparentBlit(const Playback& playback, ByteReader& reader) {
  Blend blend = ReadBlend(reader);
  QImage image = blend.bitmap.Read(playback, reader).image;
  if (image.isNull()) return;
  const QRgb left_out = playback.canvas.State().Colour(blend.parameter) & 0xFFFFFFU;
  image.convertTo(QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < image.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    std::replace_if(
        row, row + image.width(), [&](QRgb pixel) { return (pixel & 0xFFFFFFU) == left_out; }, QRgb{0});
  }
  blend.request.source = image;
  playback.canvas.Blit(blend.request);
}

void GradientFill(const Playback& playback, ByteReader& reader) {
  constexpr unsigned kDownwards = 1;
  constexpr unsigned kTriangles = 2;
  constexpr std::size_t kVertexSize = 16;
  reader.Skip(kBounds);
  const std::size_t vertex_count = reader.U32();
  const std::size_t mesh_count = reader.U32();
  const unsigned mode = reader.U32();
  std::vector<GradientVertex> vertices(reader.Capped(vertex_count, kVertexSize));
  for (GradientVertex& vertex : vertices) {
    vertex.at = EmfPoint(reader);
    // The upper halves of 16 bits count.
    const int red = reader.U16() >> 8U;
    const int green = reader.U16() >> 8U;
    const int blue = reader.U16() >> 8U;
    reader.Skip(2);
    vertex.colour = qRgb(red, green, blue);
  }
  const std::size_t corner_count = mode == kTriangles ? 3 : 2;
  for (std::size_t i = reader.Capped(mesh_count, corner_count * 4); i > 0 && !playback.canvas.OutOfTime(); --i) {
    std::array<GradientVertex, 3> corners;
    bool known = true;
    for (std::size_t corner = 0; corner < corner_count; ++corner) {
      const std::size_t index = reader.U32();
      known = known && index < vertices.size();
      if (known) corners[corner] = vertices[index];
    }
    if (!known) continue;
    if (mode == kTriangles) {
      playback.canvas.GradientTriangle(corners);
    } else {
      playback.canvas.Gradient(std::span(corners).first(2), mode == kDownwards);
    }
  }
}

constexpr RecordHandler kRecords[] = {
    {114, kDraws, AlphaBlend},
    {116, kDraws, TransparentBlit},
    {118, kDraws, GradientFill},
};

}  // namespace

std::span<const RecordHandler> EmfBlendRecords() { return kRecords; }

}  // namespace quorvale
