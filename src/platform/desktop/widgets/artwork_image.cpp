#include "platform/desktop/widgets/artwork_image.h"

namespace quorvale {

QImage ToImage(const Artwork& artwork, float scale) {
  Bitmap bitmap = artwork(scale);
  const PixelView pixels = bitmap.View();
  const QImage image(reinterpret_cast<const uchar*>(pixels.pixels), pixels.width, pixels.height,
                     static_cast<qsizetype>(pixels.stride) * static_cast<qsizetype>(sizeof(Pixel)),
                     QImage::Format_ARGB32);
  return image.copy();
}

}  // namespace quorvale
