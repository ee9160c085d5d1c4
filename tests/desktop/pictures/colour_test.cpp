#include <gtest/gtest.h>

#include <QColorSpace>
#include <algorithm>
#include <cstdlib>

#include "desktop/pictures/samples.h"
#include "platform/pictures/embedded_profile.h"

namespace quorvale {
namespace {

constexpr QRgb kColours[] = {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFC86432, 0xFF808080, 0xFF102030, 0x80C86432};

Bytes Profile(QColorSpace::NamedColorSpace space) {
  const QByteArray icc = QColorSpace(space).iccProfile();
  return {icc.begin(), icc.end()};
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
      const Bytes png = MakeImage(image, "PNG");
      const QByteArray packed = qCompress(QByteArray(reinterpret_cast<const char*>(c.profile.data()),
                                                     static_cast<qsizetype>(c.profile.size())))
                                    .mid(4);
      Bytes chunk(packed.begin(), packed.end());
      // The profile's name and the way of packing.
      for (const int byte : {0, 0, 120}) chunk.insert(chunk.begin(), static_cast<std::uint8_t>(byte));
      const bool has_profile = !c.profile.empty();
      EXPECT_LE(
          DifferenceOf(Shown(folder, has_profile ? WithPngChunk(png, "iCCP", chunk, false) : png), wanted.pixel(0, 0)),
          2)
          << c.name << std::hex << colour;
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

}  // namespace
}  // namespace quorvale
