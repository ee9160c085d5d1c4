#include <gtest/gtest.h>

#include <QColorSpace>
#include <algorithm>
#include <cstdlib>

#include "desktop/pictures/samples.h"
#include "platform/pictures/embedded_profile.h"

namespace quorvale {
namespace {

constexpr QRgb kColours[] = {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFC86432, 0xFF808080, 0xFF102030, 0x80C86432};

// One for greys takes its curve from that of red.
Bytes Profile(QColorSpace::NamedColorSpace space, bool for_greys = false) {
  QByteArray icc = QColorSpace(space).iccProfile();
  if (for_greys) icc.replace("mntrRGB ", "mntrGRAY").replace("rTRC", "kTRC");
  return {icc.begin(), icc.end()};
}

Bytes WithProfile(const Bytes& png, const Bytes& profile) {
  if (profile.empty()) return png;
  // The profile's name and the way of packing come first.
  const QByteArray chunk =
      QByteArray("x\0\0", 3) + qCompress(profile.data(), static_cast<qsizetype>(profile.size())).mid(4);
  return WithPngChunk(png, "iCCP", {chunk.begin(), chunk.end()}, false);
}

Pixel Shown(const TemporaryDirectory& folder, const Bytes& bytes) {
  Screen screen(8, 8, 0xFF000000);
  Show(WritePicture(folder, "colour", bytes), screen.Bounds(), screen);
  return screen.At(4, 4);
}

int DifferenceOf(QRgb a, QRgb b) {
  return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
}

// Qt's conversion is the reference.
TEST(PictureColours, AreConvertedFromTheProfileToSrgb) {
  const TemporaryDirectory folder;
  Bytes damaged = Profile(QColorSpace::DisplayP3);
  for (std::size_t i = 128; i < damaged.size(); i += 2) damaged[i] ^= 0x55;
  const struct {
    const char* name;
    Bytes profile;
    QColorSpace space = QColorSpace::SRgb;
  } cases[] = {{"P3", Profile(QColorSpace::DisplayP3), QColorSpace::DisplayP3},
               {"Adobe", Profile(QColorSpace::AdobeRgb), QColorSpace::AdobeRgb},
               {"sRGB", Profile(QColorSpace::SRgb)},
               {"none", {}},
               {"damaged", damaged},
               {"cut", First(Profile(QColorSpace::DisplayP3), 200)},
               {"long", Bytes(kLongestProfile + 1, 1)}};
  for (const auto& c : cases) {
    for (const QRgb colour : kColours) {
      QImage image(8, 8, QImage::Format_ARGB32);
      image.fill(colour);
      QImage wanted = image;
      wanted.setColorSpace(c.space);
      wanted.convertToColorSpace(QColorSpace::SRgb);
      if (qAlpha(colour) < 255) {
        const QRgb whole = wanted.pixel(0, 0);
        wanted.fill(qRgb(qRed(whole) / 2, qGreen(whole) / 2, qBlue(whole) / 2));
      }
      // Qt writes the profile of the image itself; a plain one has none.
      image.setColorSpace({});
      const Bytes png = WithProfile(MakeImage(image, "PNG"), c.profile);
      EXPECT_LE(DifferenceOf(Shown(folder, png), wanted.pixel(0, 0)), 2) << c.name << std::hex << colour;
      if (qAlpha(colour) < 255) continue;
      // In two pieces; JPEG itself changes saturated colours by some levels.
      JpegStyle style{.name = ""};
      style.profile = c.profile;
      if (c.profile.size() > 100'000) continue;
      EXPECT_LE(DifferenceOf(Shown(folder, MakeJpeg(image, style)), wanted.pixel(0, 0)), 5)
          << c.name << std::hex << colour;
    }
  }
}

// Some programs give a grey picture a profile of RGB.
TEST(PictureColours, OfGreyPicturesAreConvertedToo) {
  const TemporaryDirectory folder;
  constexpr QRgb kStored = 0xFF202020;
  const QRgb converted = QColorSpace(QColorSpace::AdobeRgb).transformationToColorSpace(QColorSpace::SRgb).map(kStored);
  QImage image(8, 8, QImage::Format_RGB32);
  image.fill(kStored);
  const Bytes rgb = Profile(QColorSpace::AdobeRgb);
  const Bytes grey = Profile(QColorSpace::AdobeRgb, true);
  const Bytes png = MakeImage(image.convertToFormat(QImage::Format_Grayscale8), "PNG");
  // The same curve, of lightness.
  Bytes lightness = grey;
  std::copy_n("Lab ", 4, lightness.begin() + 20);
  const std::pair<Bytes, QRgb> cases[] = {{WithProfile(png, grey), converted},
                                          {WithProfile(png, lightness), 0xFF040404},
                                          {WithProfile(MakeImage(image, "PNG"), grey), kStored},
                                          {MakeJpeg(image, {.name = "", .grey = true, .profile = grey}), converted},
                                          {MakeJpeg(image, {.name = "", .grey = true, .profile = rgb}), converted},
                                          {MakeJpeg(image, {.name = "", .profile = grey}), kStored}};
  for (const auto& [file, shown] : cases) EXPECT_LE(DifferenceOf(Shown(folder, file), shown), 1) << file.size();
}

}  // namespace
}  // namespace quorvale
