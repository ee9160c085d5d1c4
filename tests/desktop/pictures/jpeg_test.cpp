#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "base/failure.h"
#include "desktop/pictures/samples.h"

namespace quorvale {
namespace {

const std::vector<JpegStyle> kStyles{
    {.name = "whole colour"},
    {.name = "half the colour across", .across = 2},
    {.name = "half the colour down", .down = 2},
    {.name = "a quarter of the colour", .across = 2, .down = 2},
    {.name = "an eighth of the colour", .across = 4, .down = 2},
    {.name = "grey", .grey = true},
    {.name = "progressive", .across = 2, .down = 2, .progressive = true},
    {.name = "with restarts", .across = 2, .down = 2, .restart_rows = 1},
};

// Scaled to the box's size: each pixel the mean of what it covers.
QImage MeanScaled(const QImage& image, const PixelRect& box) {
  QImage scaled(box.width, box.height, QImage::Format_RGB32);
  const double ratio_x = static_cast<double>(image.width()) / box.width;
  const double ratio_y = static_cast<double>(image.height()) / box.height;
  for (int y = 0; y < box.height; ++y) {
    for (int x = 0; x < box.width; ++x) {
      std::array<double, 3> sum{};
      for (int v = static_cast<int>(y * ratio_y); v < std::min<double>((y + 1) * ratio_y, image.height()); ++v) {
        const double high = std::min(v + 1.0, (y + 1) * ratio_y) - std::max<double>(v, y * ratio_y);
        for (int u = static_cast<int>(x * ratio_x); u < std::min<double>((x + 1) * ratio_x, image.width()); ++u) {
          const double share = high * (std::min(u + 1.0, (x + 1) * ratio_x) - std::max<double>(u, x * ratio_x));
          const QRgb pixel = image.pixel(u, v);
          sum[0] += share * qRed(pixel);
          sum[1] += share * qGreen(pixel);
          sum[2] += share * qBlue(pixel);
        }
      }
      const auto mean = [&](std::size_t i) { return static_cast<int>(std::lround(sum[i] / (ratio_x * ratio_y))); };
      scaled.setPixel(x, y, qRgb(mean(0), mean(1), mean(2)));
    }
  }
  return scaled;
}

TEST(PictureJpeg, APartEqualsThatPartOfTheWhole) {
  const TemporaryDirectory folder;
  const QImage noise = MakeNoise(147, 133);
  for (const JpegStyle& style : kStyles) {
    for (const int exif : {0, 3, 5, 6, 7, 8}) {
      JpegStyle turned = style;
      turned.exif = exif;
      const Bytes bytes = MakeJpeg(noise, turned);
      const QImage whole = Decode(bytes);
      const std::string path = WritePicture(folder, "part.jpg", bytes);
      for (const PixelRect part : {PixelRect{0, 0, 5, 5}, {31, 32, 33, 17}, {63, 65, 1, 1}, {100, 90, 60, 60}}) {
        Screen screen(part.width, part.height);
        const PixelRect box{-part.left, -part.top, whole.width(), whole.height()};
        Show(path, box, screen);
        EXPECT_EQ(Difference(screen, Intersect(box, screen.Bounds()), box, whole), 0)
            << style.name << ", orientation " << exif << ", from " << part.left << ", " << part.top;
      }
    }
  }
}

TEST(PictureJpeg, IsUprightAtAnyScale) {
  const TemporaryDirectory folder;
  const QImage waves = MakeWaves(500, 330);
  for (int exif = 1; exif <= 8; ++exif) {
    const Bytes bytes = MakeJpeg(waves, {.name = "", .exif = exif});
    const std::string path = WritePicture(folder, "turned.jpg", bytes);
    const QImage upright = Decode(bytes);
    for (const PixelRect box : {PixelRect{3, 5, 50, 60}, {-30, -7, 90, 41}, {0, 0, 17, 11}, {-200, -90, 329, 329}}) {
      Screen screen(60, 40);
      Show(path, box, screen);
      EXPECT_LE(Difference(screen, Intersect(box, screen.Bounds()), box, MeanScaled(upright, box)), 3)
          << "orientation " << exif << ", " << box.width << " by " << box.height;
    }
  }
}

// Some programs store the orientation as a longer number than they should, or as one with a sign.
TEST(PictureJpeg, FindsTheOrientationHoweverItIsStored) {
  const TemporaryDirectory folder;
  Bytes bytes = MakeJpeg(MakeWaves(40, 30), {.name = "", .exif = 6});
  const std::array<std::uint8_t, 4> entry{0x12, 0x01, 3, 0};
  const auto kind = std::search(bytes.begin(), bytes.end(), entry.begin(), entry.end()) + 2;
  for (const std::uint8_t number : {3, 4, 8, 9}) {
    *kind = number;
    Screen screen(30, 40);
    const auto picture = Show(WritePicture(folder, "turned.jpg", bytes), screen.Bounds(), screen);
    EXPECT_EQ(picture->NaturalSize(1).width, 30 * kTwipsPerPixel) << int{number};
  }
  // The byte that begins a marker may fill up before it.
  bytes.insert(bytes.begin() + 2, 3, 0xFF);
  Screen screen(30, 40);
  const auto picture = Show(WritePicture(folder, "filled.jpg", bytes), screen.Bounds(), screen);
  EXPECT_EQ(picture->NaturalSize(1).width, 30 * kTwipsPerPixel);
}

// Camera data that lead to a second directory, and there to a date at `place`.
Bytes DateData(const std::string& text, bool big_endian, unsigned place = 44) {
  Bytes data{'E', 'x', 'i', 'f', 0, 0, big_endian ? std::uint8_t{'M'} : std::uint8_t{'I'}};
  data.push_back(data.back());
  const auto put = [&](unsigned value, int size) {
    for (int i = 0; i < size; ++i)
      data.push_back(static_cast<std::uint8_t>(value >> 8U * static_cast<unsigned>(big_endian ? size - 1 - i : i)));
  };
  for (const auto& [value, size] : std::vector<std::pair<unsigned, int>>{{42, 2},
                                                                         {8, 4},
                                                                         {1, 2},
                                                                         {0x8769, 2},
                                                                         {4, 2},
                                                                         {1, 4},
                                                                         {26, 4},
                                                                         {0, 4},
                                                                         {1, 2},
                                                                         {0x9003, 2},
                                                                         {2, 2},
                                                                         {20, 4},
                                                                         {place, 4},
                                                                         {0, 4}})
    put(value, size);
  data.insert(data.end(), text.begin(), text.end());
  return data;
}

Bytes WithDate(const std::string& text, bool big_endian, unsigned place = 44) {
  Bytes data = DateData(text, big_endian, place);
  const auto length = static_cast<std::uint8_t>(data.size() + 2);
  data.insert(data.begin(), {0xFF, 0xE1, 0, length});
  Bytes bytes = MakeJpeg(MakeWaves(8, 8), {.name = ""});
  bytes.insert(bytes.begin() + 2, data.begin(), data.end());
  return bytes;
}

TEST(PictureJpeg, ReadsTheDayOfThePhoto) {
  const TemporaryDirectory folder;
  struct Case {
    Bytes bytes;
    const char* day;
  };
  const std::string text = "2026:05:17 14:03:22";
  // In some JPEG XL files the camera data comes last, in a box of a long size; in TIFF it has a directory of its own.
  const auto seed = [](const std::string& name) { return ReadBytes(QUORVALE_SEEDS "/picture/" + name); };
  for (const Case& c : {Case{WithDate(text, false), "2026-05-17"},
                        {WithDate(text, true), "2026-05-17"},
                        {seed("dated.jxl"), "2026-05-17"},
                        {seed("dated-long.jxl"), "2026-05-17"},
                        {seed("dated.tif"), "2026-05-17"},
                        {seed("dated.heic"), "2026-05-17"},
                        {WithDate("0000:00:00 00:00:00", true), ""},
                        {WithDate("2026:13:45 14:03:22", true), ""},
                        {WithDate("    :  :     :  :  ", false), ""},
                        {WithDate("2026:05", false), ""},
                        {WithDate(text, false, 0xFFFFFFFF), ""},
                        {MakeJpeg(MakeWaves(8, 8), {.name = "", .exif = 6}), ""}}) {
    Screen screen(8, 8);
    EXPECT_EQ(Show(WritePicture(folder, "dated.jpg", c.bytes), screen.Bounds(), screen)->DateTaken(), c.day);
  }
}

TEST(PictureJpeg, ShrinksToTheMean) {
  const TemporaryDirectory folder;
  const QImage waves = MakeWaves(801, 603);
  for (const JpegStyle& style : kStyles) {
    const Bytes bytes = MakeJpeg(waves, style);
    const std::string path = WritePicture(folder, "shrunk.jpg", bytes);
    const QImage whole = Decode(bytes);
    for (const PixelRect box : {PixelRect{0, 0, 801, 301},
                                {-300, -200, 700, 590},
                                {0, 0, 200, 150},
                                {0, 0, 101, 76},
                                {5, 5, 33, 17},
                                {0, 0, 1, 1}}) {
      Screen screen(200, 150);
      Show(path, box, screen);
      // Colour that is halved in one direction only stays so coarse when the decoder shrinks it.
      const int tolerance = style.across != style.down ? 8 : 3;
      EXPECT_LE(Difference(screen, Intersect(box, screen.Bounds()), box, MeanScaled(whole, box)), tolerance)
          << style.name << ", " << box.width << " by " << box.height;
    }
  }
}

TEST(PictureJpeg, MixesFourInks) {
  const TemporaryDirectory folder;
  QImage inks(32, 16, QImage::Format_RGB32);
  const std::array<std::uint8_t, 4> ink{200, 100, 50, 128};
  for (int y = 0; y < inks.height(); ++y) {
    for (int x = 0; x < inks.width() * 4; ++x) inks.scanLine(y)[x] = ink[static_cast<std::size_t>(x % 4)];
  }
  Screen screen(32, 16);
  Show(WritePicture(folder, "inks.jpg", MakeInkJpeg(inks)), screen.Bounds(), screen);
  QImage wanted(32, 16, QImage::Format_RGB32);
  wanted.fill(qRgb(200 * 128 / 255, 100 * 128 / 255, 50 * 128 / 255));
  EXPECT_LE(Difference(screen, screen.Bounds(), screen.Bounds(), wanted), 3);
}

// Every length must end in a picture or a failure; what comes before the cut must be right.
TEST(PictureJpeg, ACutFileShowsItsFirstRows) {
  const TemporaryDirectory folder;
  const QImage waves = MakeWaves(160, 128);
  for (const JpegStyle& style : kStyles) {
    const Bytes bytes = MakeJpeg(waves, style);
    const QImage whole = Decode(bytes);
    const PixelRect box{0, 0, whole.width(), whole.height()};
    bool shown_before = false;
    for (std::size_t length = 0; length < bytes.size(); length += 37) {
      Screen screen(box.width, box.height);
      const std::string path = WritePicture(folder, "cut.jpg", First(bytes, length));
      const auto failure = LoadFailure(path);
      const bool shown = !failure;
      if (shown) Show(path, box, screen);
      EXPECT_EQ(failure.value_or(FailureNumber::kBadPicture), FailureNumber::kBadPicture);
      EXPECT_FALSE(shown_before && !shown) << style.name << ", cut at " << length;
      EXPECT_TRUE(shown || length < bytes.size() / 2) << style.name << ", cut at " << length;
      if (length > bytes.size() * 3 / 4 && !style.progressive) {
        EXPECT_EQ(Difference(screen, {0, 0, box.width, 32}, box, whole), 0) << style.name << ", cut at " << length;
      }
      shown_before = shown;
    }
  }
}

}  // namespace
}  // namespace quorvale
