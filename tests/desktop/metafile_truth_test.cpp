// Compares metafiles, made by the functions of Windows, with the pictures that a Windows player made of them. Edges
// may differ by a pixel: they are soft here and hard there.

#include <gtest/gtest.h>

#include <QFontInfo>
#include <QImage>
#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "desktop/pictures/samples.h"

namespace quorvale {
namespace {

constexpr int kWidth = 200;
constexpr int kHeight = 150;

using Channel = int (*)(QRgb);
constexpr Channel kChannels[] = {qRed, qGreen, qBlue};

struct Limit {
  std::string name;
  double wrong_pixels = 0;     // per thousand
  double mean_difference = 0;  // of a channel
};

std::vector<Limit> ReadLimits() {
  std::ifstream file(QUORVALE_METAFILES "/differences.txt");
  std::vector<Limit> limits;
  for (std::string line; std::getline(file, line);) {
    std::istringstream fields(line);
    Limit limit;
    if (line.starts_with("#") || !(fields >> limit.name)) continue;
    fields >> limit.wrong_pixels >> limit.mean_difference;
    limits.push_back(limit);
  }
  return limits;
}

// The largest distance of a channel from its range in the neighbourhood of the same place in another picture.
int Distance(QRgb pixel, const QImage& other, int x, int y) {
  int most = 0;
  for (const Channel channel : kChannels) {
    int low = 255;
    int high = 0;
    for (int near_y = std::max(0, y - 1); near_y <= std::min(kHeight - 1, y + 1); ++near_y) {
      for (int near_x = std::max(0, x - 1); near_x <= std::min(kWidth - 1, x + 1); ++near_x) {
        const int value = channel(other.pixel(near_x, near_y));
        low = std::min(low, value);
        high = std::max(high, value);
      }
    }
    most = std::max({most, low - channel(pixel), channel(pixel) - high});
  }
  return most;
}

Limit Compare(const std::string& name, const QImage& ours, const QImage& truth) {
  constexpr int kWrong = 48;
  Limit found{.name = name};
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      const QRgb a = ours.pixel(x, y);
      const QRgb b = truth.pixel(x, y);
      if (std::max(Distance(a, truth, x, y), Distance(b, ours, x, y)) > kWrong) ++found.wrong_pixels;
      for (const Channel channel : kChannels) found.mean_difference += std::abs(channel(a) - channel(b));
    }
  }
  found.wrong_pixels *= 1000.0 / (kWidth * kHeight);
  found.mean_difference /= 3.0 * kWidth * kHeight;
  return found;
}

QImage Render(const std::string& path) {
  Screen screen(kWidth, kHeight, 0xFFFFFFFF);
  Show(path, screen.Bounds(), screen);
  return QImage(reinterpret_cast<const uchar*>(screen.pixels.data()), kWidth, kHeight, QImage::Format_RGB32).copy();
}

// The Windows player drew its texts with these typefaces; others have other shapes and widths.
bool HasTypefacesOfTheTruth() { return QFontInfo(QFont("Arial")).family() == "Liberation Sans"; }

// With METAFILE_OUTPUT set, both pictures go to that directory side by side.
TEST(MetafileTruth, EveryKindOfRecordMatchesAWindowsPlayer) {
  const std::vector<Limit> limits = ReadLimits();
  ASSERT_GE(limits.size(), 40U);
  const bool with_texts = HasTypefacesOfTheTruth();
  for (const Limit& limit : limits) {
    if (!with_texts && limit.name.find("text") != std::string::npos) continue;
    const std::string path = QUORVALE_METAFILES "/" + limit.name;
    const QImage truth(QString::fromStdString(path + ".png"));
    ASSERT_FALSE(truth.isNull()) << path;
    const QImage ours = Render(path);
    const Limit found = Compare(limit.name, ours, truth);
    EXPECT_LE(found.wrong_pixels, limit.wrong_pixels) << limit.name;
    EXPECT_LE(found.mean_difference, limit.mean_difference) << limit.name;
    if (const char* output = std::getenv("METAFILE_OUTPUT")) {
      std::printf("%-24s %8.2f %8.2f\n", limit.name.c_str(), found.wrong_pixels, found.mean_difference);
      ours.save(QString::fromStdString(std::string(output) + "/" + limit.name + ".ours.png"));
    }
  }
  if (!with_texts) GTEST_SKIP() << "Arial is not the Liberation Sans of fonts-liberation: texts were not compared";
}

}  // namespace
}  // namespace quorvale
