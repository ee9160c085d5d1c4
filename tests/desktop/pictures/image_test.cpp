#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "base/failure.h"
#include "desktop/pictures/samples.h"

namespace quorvale {
namespace {

constexpr Pixel kBackground = 0xFF204060;

TEST(PictureImage, TransparentPixelsShowTheBackground) {
  const TemporaryDirectory folder;
  const std::string path =
      WritePicture(folder, "half.gif", MakeGif(40, 20, [](int x, int) { return x < 20 ? 0 : 100; }));
  for (const PixelRect box : {PixelRect{0, 0, 40, 20}, {0, 0, 20, 10}, {0, 0, 80, 40}}) {
    Screen screen(box.width, box.height, kBackground);
    Show(path, box, screen);
    EXPECT_EQ(screen.At(0, 0), kBackground) << box.width;
    EXPECT_EQ(screen.At(box.width / 2 - 2, box.height - 1), kBackground) << box.width;
    EXPECT_EQ(screen.At(box.width - 1, 0), 0xFFC8C8C8) << box.width;
  }
}

// From the second one on its codes have three bits.
TEST(PictureImage, ReadsAGifOfOneBit) {
  const TemporaryDirectory folder;
  const Bytes gif{'G', 'I', 'F', '8', '9', 'a', 3, 0, 1, 0, 0x80, 0, 0, 0,    0,    0, 255, 255,
                  255, ',', 0,   0,   0,   0,   3, 0, 1, 0, 0,    1, 2, 0x92, 0x0C, 0, ';'};
  Screen screen(3, 1);
  Show(WritePicture(folder, "bit.gif", gif), screen.Bounds(), screen);
  EXPECT_EQ(screen.pixels, (std::vector<Pixel>{0xFF000000, 0xFFFFFFFF, 0xFFFFFFFF}));
}

// A writer that was stopped leaves out the end of the codes, with all rows there.
TEST(PictureImage, ACutGifShowsItsFirstRows) {
  const TemporaryDirectory folder;
  const auto colour = [](int x, int y) { return 1 + (x * 7 + y * 3) % 120; };
  const Bytes whole = MakeGif(40, 30, colour);
  Screen wanted(40, 30);
  Show(WritePicture(folder, "whole.gif", whole), wanted.Bounds(), wanted);
  for (const std::size_t cut : {2U, 400U}) {
    Screen screen(40, 30);
    Show(WritePicture(folder, "cut.gif", First(whole, whole.size() - cut)), screen.Bounds(), screen);
    const int rows = cut == 2 ? 30 : 20;
    for (int y = 0; y < 30; ++y)
      EXPECT_EQ(screen.At(5, y), y < rows ? wanted.At(5, y) : kBackground) << cut << ' ' << y;
  }
}

TEST(PictureImage, HalfTransparentPixelsAreBlended) {
  const TemporaryDirectory folder;
  QImage image(4, 4, QImage::Format_ARGB32);
  image.fill(qRgba(255, 0, 0, 128));
  Screen screen(4, 4, 0xFF0000FF);
  Show(WritePicture(folder, "half.png", MakeImage(image, "PNG")), screen.Bounds(), screen);
  QImage wanted(4, 4, QImage::Format_RGB32);
  wanted.fill(qRgb(128, 0, 127));
  EXPECT_LE(Difference(screen, screen.Bounds(), screen.Bounds(), wanted), 1);
}

// A TIFF's greys need not be multiplied by their alpha, which stands beside them or in a plane of its own.
TEST(PictureImage, HalfTransparentGreysAreBlended) {
  const TemporaryDirectory folder;
  for (const unsigned planes : {1U, 2U}) {
    const unsigned offsets = planes == 1 ? 8 : 8 | 9U << 16U;
    const unsigned sizes = planes == 1 ? 2 : 1 | 1U << 16U;
    // Tag, count and value: size, bits, compression, black, offsets, samples, rows, sizes, planes, alpha.
    const unsigned entries[][3] = {
        {256, 1, 1}, {257, 1, 1}, {258, 2, 0x80008},    {259, 1, 1},      {262, 1, 1}, {273, planes, offsets},
        {277, 1, 2}, {278, 1, 1}, {279, planes, sizes}, {284, 1, planes}, {338, 1, 2}};
    Bytes tiff{'I', 'I', 42, 0, 10, 0, 0, 0, 200, 128, 11, 0};
    for (const auto& [tag, count, value] : entries) {
      for (const unsigned part : {tag, 3U, count, 0U, value, value >> 16U}) {
        tiff.push_back(static_cast<std::uint8_t>(part));
        tiff.push_back(static_cast<std::uint8_t>(part >> 8U));
      }
    }
    tiff.insert(tiff.end(), 4, 0);
    Screen screen(1, 1, 0xFF000000);
    Show(WritePicture(folder, "half.tif", tiff), screen.Bounds(), screen);
    EXPECT_EQ(screen.At(0, 0), 0xFF646464) << planes;
  }
}

TEST(PictureImage, ReadsEveryDepth) {
  const TemporaryDirectory folder;
  const QImage noise = MakeNoise(70, 50);
  for (const auto format : {QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_RGB888, QImage::Format_RGB32,
                            QImage::Format_Grayscale8, QImage::Format_RGBX64}) {
    const QImage image = noise.convertToFormat(format);
    for (const char* type : {"BMP", "PNG"}) {
      const Bytes bytes = MakeImage(image, type);
      Screen screen(30, 30);
      const PixelRect box{-20, 7, 70, 50};
      Show(WritePicture(folder, "depth", bytes), box, screen);
      EXPECT_EQ(Difference(screen, Intersect(box, screen.Bounds()), box, Decode(bytes)), 0) << type << format;
      EXPECT_EQ(screen.At(0, 0), kBackground);
    }
  }
}

// A slope stays straight when it grows, and is flat at both ends.
TEST(PictureImage, GrowsByLinearInterpolation) {
  const TemporaryDirectory folder;
  QImage slope(20, 20, QImage::Format_RGB32);
  for (int y = 0; y < 20; ++y) {
    for (int x = 0; x < 20; ++x) slope.setPixel(x, y, qRgb(10 * x, 10 * y, 5 * (x + y)));
  }
  const std::string path = WritePicture(folder, "slope.bmp", MakeImage(slope, "BMP"));
  for (const PixelRect box : {PixelRect{0, 0, 200, 200}, {-333, -90, 700, 333}, {0, 0, 31, 20}}) {
    Screen screen(200, 200);
    Show(path, box, screen);
    QImage wanted(box.width, box.height, QImage::Format_RGB32);
    for (int y = 0; y < box.height; ++y) {
      for (int x = 0; x < box.width; ++x) {
        const double u = std::clamp((x + 0.5) * 20 / box.width - 0.5, 0.0, 19.0);
        const double v = std::clamp((y + 0.5) * 20 / box.height - 0.5, 0.0, 19.0);
        wanted.setPixel(x, y, qRgb(qRound(10 * u), qRound(10 * v), qRound(5 * (u + v))));
      }
    }
    EXPECT_LE(Difference(screen, Intersect(box, screen.Bounds()), box, wanted), 1) << box.width;
  }
}

TEST(PictureImage, APngIsUpright) {
  const TemporaryDirectory folder;
  const QImage waves = MakeWaves(40, 30);
  const Bytes plain = MakeImage(Decode(MakeJpeg(waves, {.name = ""})), "PNG");
  for (int exif = 1; exif <= 8; ++exif) {
    const QImage upright = Decode(MakeJpeg(waves, {.name = "", .exif = exif}));
    const Bytes segment = ExifData(exif);
    for (const auto& [data, at_end] :
         {std::pair(Bytes(segment.begin() + 6, segment.end()), false), {segment, false}, {segment, true}}) {
      const std::string path = WritePicture(folder, "turned.png", WithPngChunk(plain, "eXIf", data, at_end));
      Screen screen(upright.width(), upright.height());
      const auto picture = Show(path, screen.Bounds(), screen);
      EXPECT_EQ(picture->NaturalSize(1).width, upright.width() * kTwipsPerPixel) << exif;
      EXPECT_EQ(Difference(screen, screen.Bounds(), screen.Bounds(), upright), 0) << exif << at_end;
      EXPECT_NE(picture->Covering({upright.width(), upright.height()}, screen.Bounds()), nullptr);
    }
  }
}

// The libraries would print messages about damage.
TEST(PictureImage, ACutFilePrintsNothing) {
  testing::internal::CaptureStderr();
  const TemporaryDirectory folder;
  const QImage noise = MakeNoise(60, 40);
  for (const Bytes& bytes :
       {MakeImage(noise, "BMP"), MakeImage(noise, "PNG"), WithPngChunk(MakeImage(noise, "PNG"), "gAMA", {0}, false),
        MakeGif(60, 40, [](int x, int y) { return 1 + (x * y) % 120; })}) {
    for (std::size_t length = 0; length < bytes.size(); length += bytes.size() / 20) {
      const auto failure = LoadFailure(WritePicture(folder, "cut", First(bytes, length)));
      EXPECT_EQ(failure.value_or(FailureNumber::kBadPicture), FailureNumber::kBadPicture);
    }
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace quorvale
