#include "platform/desktop/toolkit/text_painter.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quorvale {
namespace {

constexpr double kPixelsPerInch = 96;
constexpr Pixel kPaper = 0xFF102030;
constexpr int kWidth = 120;
constexpr int kHeight = 60;
constexpr int kEdge = 20;
const Font kNames{"MS Serif", 12};
const Font kTiny{"Small Fonts", 4.2F};

TEST(QtTextPainter, MakesALineAsHighAsItsPointsAtEveryScale) {
  QtTextPainter painter(kPixelsPerInch);
  const struct {
    Font font;
    float scale = 1;
    double pixels = 0;
  } cases[] = {{kNames, 1, 16}, {kNames, 1.5, 24}, {kNames, 2, 32},
               {kTiny, 1, 5.6}, {kTiny, 1.5, 8.4}, {kTiny, 2, 11.2}};
  for (const auto& c : cases) {
    const PixelRect size = painter.Measure("Photograph", c.font, c.scale);
    EXPECT_GE(size.height, c.pixels) << c.font.name << c.scale;
    EXPECT_LE(size.height, c.pixels * 1.5 + 1) << c.font.name << c.scale;
    // Ten letters of about half their height.
    EXPECT_GE(size.width, c.pixels * 10 * 0.35) << c.font.name << c.scale;
    EXPECT_LE(size.width, c.pixels * 10 * 0.7) << c.font.name << c.scale;
  }
}

TEST(QtTextPainter, KeepsFractionsOfAPixel) {
  QtTextPainter painter(kPixelsPerInch);
  const std::string line(40, 'n');
  const double at_five = painter.Measure(line, {"Small Fonts", 3.75F}, 1).width;
  const double at_five_and_a_half = painter.Measure(line, {"Small Fonts", 4.125F}, 1).width;
  EXPECT_NEAR(at_five_and_a_half / at_five, 1.1, 0.03);
}

TEST(QtTextPainter, IsWiderForALongerTextAndEmptyForNone) {
  QtTextPainter painter(kPixelsPerInch);
  EXPECT_EQ(painter.Measure("", kNames, 1).width, 0);
  EXPECT_GT(painter.Measure("", kNames, 1).height, 0);
  EXPECT_GT(painter.Measure("\u00dcber allen Gipfeln", kNames, 1).width, painter.Measure("\u00dcber", kNames, 1).width);
  EXPECT_EQ(painter.Measure("two\nlines", kNames, 1).height, painter.Measure("two", kNames, 1).height);
}

// The flag is one glyph where there is a font of emoji, and Qt's box of such a line is too narrow.
TEST(QtTextPainter, DrawsALineToItsEnd) {
  QtTextPainter painter(kPixelsPerInch);
  for (const char* const text : {"Wolken", "\U0001F1E9\U0001F1EA Wolken", "am \U0001F1E9\U0001F1EA am"}) {
    const int width = painter.Measure(text, kNames, 1).width;
    std::vector<Pixel> buffer(static_cast<std::size_t>(width) * kHeight, kPaper);
    painter.Draw({buffer.data(), width, kHeight, width}, 0, 0, text, kNames, 0x0000FF, 1);
    int inked = 0;
    for (std::ptrdiff_t row = 1; row <= kHeight; ++row) {
      const auto end = buffer.begin() + row * width;
      inked += static_cast<int>(std::count_if(end - 5, end, [](Pixel pixel) { return pixel != kPaper; }));
    }
    EXPECT_GT(inked, 0) << text;
  }
}

// Draws in the middle of a larger buffer, whose edge nothing may touch.
TEST(QtTextPainter, DrawsOnlyInTheReportedArea) {
  const std::tuple<const char*, int, int, bool> cases[] = {{"inside", 5, 5, true},
                                                           {"cut at left and top", -15, -8, true},
                                                           {"cut at right", 60, 5, true},
                                                           {"above", 5, -100, false},
                                                           {"far to the right", 4000, 5, false}};
  QtTextPainter painter(kPixelsPerInch);
  for (const auto& [what, left, top, is_seen] : cases) {
    std::vector<Pixel> buffer(static_cast<std::size_t>(kWidth) * kHeight, kPaper);
    const PixelView target{&buffer[static_cast<std::size_t>(kEdge) * kWidth + kEdge], kWidth - 2 * kEdge,
                           kHeight - 2 * kEdge, kWidth};
    const PixelRect changed = painter.Draw(target, left, top, "Wolken", kNames, 0x0000FF, 1);
    EXPECT_EQ(Intersect(changed, target.Bounds()), changed) << what;
    int inked = 0;
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) {
        if (buffer[static_cast<std::size_t>(y) * kWidth + x] == kPaper) continue;
        ++inked;
        const PixelRect pixel{x - kEdge, y - kEdge, 1, 1};
        ASSERT_EQ(Intersect(pixel, changed), pixel) << what << " at " << x << ", " << y;
      }
    }
    EXPECT_EQ(inked > 0, is_seen) << what;
    if (is_seen) {
      EXPECT_NE(std::find(buffer.begin(), buffer.end(), 0xFFFF0000), buffer.end()) << what;
    }
  }
}

}  // namespace
}  // namespace quorvale
