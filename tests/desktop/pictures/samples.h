#pragma once

#include <QImage>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/failure.h"
#include "desktop/temporary_directory.h"
#include "platform/desktop/pictures/picture_loader.h"
#include "support/picture_samples.h"
#include "toolkit/picture.h"

namespace quorvale {

using Bytes = std::vector<std::uint8_t>;

// Returns the path.
std::string WritePicture(const TemporaryDirectory& directory, const std::string& name, const Bytes& bytes);
Bytes ReadBytes(const std::string& path);
// What is left of bytes that are cut off.
Bytes First(const Bytes& bytes, std::size_t count);
// None if the file is a picture.
std::optional<FailureNumber> LoadFailure(const std::string& path);

// How to compress a sample.
struct JpegStyle {
  std::string name;
  int across = 1;  // pixels to a colour sample
  int down = 1;
  bool grey = false;
  bool progressive = false;
  int restart_rows = 0;
  int exif = 0;        // orientation; 0: no camera data
  Bytes profile = {};  // written in two pieces
};
Bytes MakeJpeg(const QImage& image, const JpegStyle& style);
// Four inks, inverted: 255 is no ink.
Bytes MakeInkJpeg(const QImage& inks);
Bytes MakeImage(const QImage& image, const char* format);
// A PNG with a chunk behind its header or before its end.
Bytes WithPngChunk(const Bytes& png, const std::string& type, const Bytes& data, bool at_end);
// The smallest camera data with an orientation. Even numbers are stored in little-endian order, odd ones in big-endian.
Bytes ExifData(int orientation);
// One frame in greys. `colour` is 0 to 127, and 0 is transparent.
Bytes MakeGif(int width, int height, const std::function<int(int x, int y)>& colour);

// Soft waves of colour, with four different corners.
QImage MakeWaves(int width, int height);
// Every pixel another colour.
QImage MakeNoise(int width, int height);

// As Qt decodes it, turned upright.
QImage Decode(const Bytes& bytes);

// Loads for that box on the screen and paints it.
std::shared_ptr<Picture> Show(const std::string& path, const PixelRect& box, Screen& screen,
                              PictureReading reading = {});

// The largest difference of a channel in `area` between the screen and `image` at `box`'s corner.
int Difference(const Screen& screen, const PixelRect& area, const PixelRect& box, const QImage& image);

}  // namespace quorvale
