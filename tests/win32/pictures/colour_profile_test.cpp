#include "platform/win32/pictures/colour_profile.h"

#include <gtest/gtest.h>

#include "win32/pictures/picture_samples.h"
#include "win32/work_directory.h"

namespace quorvale {
namespace {

// A curve only, with another exponent: that of red.
std::vector<std::uint8_t> MakeGreyProfile() {
  std::vector<std::uint8_t> profile = MakeProfile(kDisplayP3);
  std::copy_n("GRAY", 4, profile.begin() + 16);
  profile[156] = 'k';
  profile[249] = 3;
  return profile;
}

// The last but one is half transparent.
TEST(ColourProfile, ConvertsToTheScreen) {
  const std::vector<std::uint8_t> bytes = MakeProfile(kDisplayP3);
  const auto profile = ColourProfile::Read(bytes, true);
  ASSERT_NE(profile, nullptr);
  const struct {
    Pixel stored;
    Pixel shown;
  } colours[] = {{0xFFFFFFFF, 0xFFFFFFFF},
                 {0xFF000000, 0xFF000000},
                 {0xFF808080, 0xFF808080},
                 {0xFFEA3323, 0xFFFF0000},
                 {0xFF8FB573, 0xFF84B66B},
                 {0x80754830, 0x807C452B},
                 {0, 0}};
  for (const auto& [stored, shown] : colours) {
    std::vector<Pixel> row = {stored, stored};
    profile->ToScreen(row);
    EXPECT_LE(Difference(row[1], shown), 6) << std::hex << stored << " becomes " << row[1];
  }
}

// Red of sRGB, as Display P3 stores it.
TEST(ColourProfile, OfAFileIsApplied) {
  const WorkDirectory directory;
  const auto colours = [](int, int) { return Pixel{0xFFEA3323}; };
  const std::vector<std::uint8_t> profile = MakeProfile(kDisplayP3);
  const std::string text(profile.begin(), profile.end());
  const std::string cut = text.substr(0, 150);
  for (const auto& [bytes, shown] : {std::pair{WithProfile(MakeJpeg(16, 16, colours), text), Pixel{0xFFFF0000}},
                                     {WithProfile(MakePng(16, 16, colours), text), 0xFFFF0000},
                                     {WithProfile(MakeJpeg(16, 16, colours), cut), 0xFFEA3323},
                                     {WithProfile(MakePng(16, 16, colours), cut), 0xFFEA3323}}) {
    Screen screen(16, 16);
    Show(directory.Write("colours", bytes), screen.Bounds(), screen);
    EXPECT_LE(Difference(screen.At(8, 8), shown), 8) << std::hex << screen.At(8, 8);
  }
}

// The system hands out greys with alpha as colours.
TEST(ColourProfile, OfAGreyTiffWithAlphaIsApplied) {
  const std::vector<std::uint8_t> profile = MakeGreyProfile();
  const auto size = static_cast<unsigned>(profile.size());
  // Tag, type, count and value: size, bits, compression, kind, offset, samples, rows, length, alpha, profile.
  const unsigned entries[][4] = {{256, 3, 1, 1}, {257, 3, 1, 1}, {258, 3, 2, 0x80008}, {259, 3, 1, 1},
                                 {262, 3, 1, 1}, {273, 3, 1, 8}, {277, 3, 1, 2},       {278, 3, 1, 1},
                                 {279, 3, 1, 2}, {338, 3, 1, 2}, {34675, 7, size, 148}};
  std::string tiff("II*\0\12\0\0\0\x80\xFF\13\0", 12);
  for (const auto& [tag, type, count, value] : entries) {
    for (const unsigned part : {tag | type << 16U, count, value}) {
      for (const unsigned shift : {0U, 8U, 16U, 24U}) tiff += static_cast<char>(part >> shift);
    }
  }
  tiff.append(4, '\0').append(profile.begin(), profile.end());
  Screen screen(1, 1);
  Show(WorkDirectory().Write("greys.tif", tiff), screen.Bounds(), screen);
  EXPECT_LE(Difference(screen.At(0, 0), 0xFF5F5F5F), 2) << std::hex << screen.At(0, 0);
}

TEST(ColourProfile, IsIgnoredWhereItChangesNothing) {
  std::vector<std::uint8_t> damaged = MakeProfile(kDisplayP3);
  const std::vector<std::uint8_t> grey = MakeGreyProfile();
  EXPECT_EQ(ColourProfile::Read(MakeProfile(kSrgb), false), nullptr);
  std::vector<Pixel> row = {0xFF000000, 0xFF808080, 0x80404040};
  EXPECT_EQ(ColourProfile::Read(grey, false), nullptr);
  ColourProfile::Read(grey, true)->ToScreen(row);
  EXPECT_LE(Difference(row[0], 0xFF000000) + Difference(row[1], 0xFF5F5F5F) + Difference(row[2], 0x80303030), 2);
  for (std::size_t size = 0; size < damaged.size(); size += 20) {
    const auto profile = ColourProfile::Read(ByteSpan(damaged).first(size), false);
    EXPECT_TRUE(profile == nullptr || size > 128) << size;
  }
}

}  // namespace
}  // namespace quorvale
