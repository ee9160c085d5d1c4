#pragma once

#include <QImage>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/temporary_directory.h"
#include "platform/desktop/pictures/picture_loader.h"
#include "toolkit/picture.h"

namespace quorvale {

using Bytes = std::vector<std::uint8_t>;

// Gives the path.
std::string WritePicture(const TemporaryDirectory& directory, const std::string& name, const Bytes& bytes);

// How a sample is compressed.
struct JpegStyle {
  std::string name;
  int across = 1;  // pixels to a colour sample
  int down = 1;
  bool grey = false;
  bool progressive = false;
  int restart_rows = 0;
  int exif = 0;  // no camera data if 0
};
Bytes MakeJpeg(const QImage& image, const JpegStyle& style);
// Four inks, 255 being none.
Bytes MakeInkJpeg(const QImage& inks);
Bytes MakeImage(const QImage& image, const char* format);
// A PNG with a chunk behind its header or before its end.
Bytes WithPngChunk(const Bytes& png, const std::string& type, const Bytes& data, bool at_end);
// The smallest camera data that hold an orientation, in either order of bytes.
Bytes ExifData(int orientation);
// One frame of that many colours of grey, 0 being transparent.
Bytes MakeGif(int width, int height, const std::function<int(int x, int y)>& colour);

// Soft waves of colour, with a detail that tells the corners apart.
QImage MakeWaves(int width, int height);
// Every pixel another colour.
QImage MakeNoise(int width, int height);

// As Qt decodes it, turned upright.
QImage Decode(const Bytes& bytes);

// A picture on a screen.
struct Screen {
  Screen(int width, int height, Pixel background = 0xFF204060);
  PixelRect Bounds() const { return {0, 0, width, height}; }
  PixelView View() { return {pixels.data(), width, height, width}; }
  Pixel At(int x, int y) const { return pixels[static_cast<std::size_t>(y) * width + x]; }

  int width;
  int height;
  std::vector<Pixel> pixels;
};

// A place that doesn't depend on the picture.
PicturePlace PlaceAt(const PixelRect& box, const PixelRect& clip);
// Loads for that box on the screen and paints it.
std::shared_ptr<Picture> Show(const std::string& path, const PixelRect& box, Screen& screen,
                              PictureReading reading = {});

// The largest difference of a channel in `area` between the screen and `image` at `box`'s corner.
int Difference(const Screen& screen, const PixelRect& area, const PixelRect& box, const QImage& image);

}  // namespace quorvale
