#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <random>

#include "toolkit/surface.h"

namespace quorvale {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

// A set of pixels kept the plain way, to compare regions with.
class PixelSet {
 public:
  PixelSet(int width, int height) : width_(width), bits_(static_cast<std::size_t>(width) * height) {}

  void Set(int x, int y) { bits_[Index(x, y)] = true; }
  bool Has(int x, int y) const { return bits_[Index(x, y)]; }
  void Clear() { bits_.assign(bits_.size(), false); }

  int Count(const PixelRect& rect) const {
    int count = 0;
    for (int y = rect.top; y < rect.Bottom(); ++y) {
      for (int x = rect.left; x < rect.Right(); ++x) count += Has(x, y) ? 1 : 0;
    }
    return count;
  }

  // The longest runs of each row, from top to bottom.
  std::vector<PixelRect> Spans() const {
    std::vector<PixelRect> spans;
    for (int y = 0; y < Height(); ++y) {
      for (int x = 0; x < width_; ++x) {
        if (!Has(x, y)) continue;
        if (x > 0 && Has(x - 1, y)) {
          ++spans.back().width;
        } else {
          spans.push_back({x, y, 1, 1});
        }
      }
    }
    return spans;
  }

  int Width() const { return width_; }
  int Height() const { return width_ == 0 ? 0 : static_cast<int>(bits_.size()) / width_; }

 private:
  std::size_t Index(int x, int y) const { return static_cast<std::size_t>(y) * width_ + x; }

  int width_;
  std::vector<bool> bits_;
};

// Bands from top to bottom, rectangles that do not touch in each; all of `changed` in them, and in each
// band at most a quarter of other pixels.
void ExpectBandForm(const std::vector<PixelRect>& rects, const PixelSet& changed) {
  int covered = 0;
  int band_given = 0;
  int band_changed = 0;
  for (std::size_t i = 0; i < rects.size(); ++i) {
    const PixelRect& rect = rects[i];
    ASSERT_FALSE(rect.IsEmpty());
    ASSERT_TRUE(rect.left >= 0 && rect.top >= 0 && rect.Right() <= changed.Width() &&
                rect.Bottom() <= changed.Height());
    const bool same_band = i > 0 && rect.top == rects[i - 1].top;
    if (same_band) {
      ASSERT_EQ(rect.height, rects[i - 1].height);
      ASSERT_GT(rect.left, rects[i - 1].Right());
    } else {
      ASSERT_GE(rect.top, i > 0 ? rects[i - 1].Bottom() : 0);
      band_given = 0;
      band_changed = 0;
    }
    const int count = changed.Count(rect);
    covered += count;
    band_changed += count;
    band_given += rect.width * rect.height;
    const bool last_of_band = i + 1 == rects.size() || rects[i + 1].top != rect.top;
    ASSERT_TRUE(!last_of_band || 4 * (band_given - band_changed) <= band_given);
  }
  ASSERT_EQ(covered, changed.Count({0, 0, changed.Width(), changed.Height()}));
}

constexpr Pixel kPaper = 0xFFFFFFFF;
constexpr Pixel kInk = 0xFF000000;
constexpr Pixel kRim = 0xFFFF0000;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::vector<std::string> Look(const Surface& surface) {
  std::vector<std::string> rows;
  for (int y = 0; y < surface.Height(); ++y) {
    std::string row;
    for (int x = 0; x < surface.Width(); ++x) {
      const Pixel pixel = surface.At(x, y);
      row += pixel == kPaper ? '.' : pixel == kInk ? '#' : 'o';
    }
    rows.push_back(row);
  }
  return rows;
}

TEST(Surface, ShapesCoverThePixelsWhoseCentresAreInside) {
  const std::tuple<const char*, std::function<void(Surface&)>, std::vector<std::string>> cases[] = {
      {"an odd pen on a whole coordinate",
       [](Surface& s) { s.DrawLine(3, 0, 3, 4, 1, kInk); },
       {"...#....", "...#....", "...#....", "...#....", "...#...."}},
      {"a pen on the first edge shows",
       [](Surface& s) { s.DrawLine(0, 0, 8, 0, 1, kInk); },
       {"########", "........", "........", "........", "........"}},
      {"an even pen, ends half a pen beyond",
       [](Surface& s) { s.DrawLine(3, 2, 5, 2, 2, kInk); },
       {"........", "..####..", "..####..", "........", "........"}},
      {"a dot below one pixel",
       [](Surface& s) { s.DrawDot(3.9, 2.1, 0.2, kInk); },
       {"........", "........", "...#....", "........", "........"}},
      {"a dot of one pixel on a corner of four",
       [](Surface& s) { s.DrawDot(3, 2, 1, kInk); },
       {"........", "........", "...#....", "........", "........"}},
      {"pens and places beyond all bounds",
       [](Surface& s) {
         s.DrawDot(1e30, -1e30, 32767, kInk);
         s.DrawLine(20000, 2, 1e300, 2, 32767, kInk);
         s.DrawCircle(-kInfinity, 0, 5, 3, kInk, kInk);
         s.DrawLine(kNan, 0, 5, 5, 30, kInk);
         s.DrawLine(0, 0, 5, 5, kNan, kInk);
         s.DrawCircle(4, 2, kNan, 30, kInk, kInk);
         s.DrawCircle(4, 2, -1, 30, kInk, kInk);
         s.DrawDot(4, kNan, 30, kInk);
         s.DrawLine(0, 3, 8, 3, -5, kInk);
         s.FillRect({2, 2, -1, 3}, kInk);
       },
       {"........", "........", "........", "........", "........"}},
      {"an endless disc",
       [](Surface& s) { s.DrawCircle(4, 2, kInfinity, kInfinity, kInk, kInk); },
       {"########", "########", "########", "########", "########"}},
      {"a line through all there is",
       [](Surface& s) { s.DrawLine(-1e300, 2, 1e300, 2, 32767, kInk); },
       {"########", "########", "########", "########", "########"}},
  };
  for (const auto& [name, draw, look] : cases) {
    SCOPED_TRACE(name);
    Surface surface;
    surface.Resize(8, 5, kPaper);
    draw(surface);
    EXPECT_THAT(Look(surface), ElementsAreArray(look));
  }
}

// Draws the same shapes pixel by pixel and records the changed pixels.
class PlainSurface {
 public:
  PlainSurface(int width, int height, Pixel fill)
      : pixels(static_cast<std::size_t>(width) * height, fill), changed(width, height) {}

  void Paint(int x, int y, Pixel colour) {
    Pixel& pixel = pixels[static_cast<std::size_t>(y) * changed.Width() + x];
    if (pixel != colour) changed.Set(x, y);
    pixel = colour;
  }

  template <typename Inside>
  void Fill(Pixel colour, Inside inside) {
    for (int y = 0; y < changed.Height(); ++y) {
      for (int x = 0; x < changed.Width(); ++x) {
        if (inside(x + 0.5, y + 0.5)) Paint(x, y, colour);
      }
    }
  }

  std::vector<Pixel> pixels;
  PixelSet changed;
};

bool InDisc(double dx, double dy, double radius) {
  const double excess = dx * dx + dy * dy - radius * radius;
  return radius > 0 && (excess < 0 || (excess == 0 && dx > 0));
}

bool InTurnedBox(double dx, double dy, double along_x, double along_y, double reach, double half) {
  return std::abs(dx * along_x + dy * along_y) <= reach && std::abs(dy * along_x - dx * along_y) <= half;
}

// Draws the same random shapes on both kinds of surface.
class BothSurfaces {
 public:
  BothSurfaces(int width, int height, unsigned seed) : plain(width, height, kPaper), random_(seed) {
    surface.Resize(width, height, kPaper);
    plain.changed.Clear();
    surface.Dirty().Take();
  }

  void DrawSomething() {
    const Pixel colour = AnyColour();
    const double x = AnyPlace(surface.Width());
    const double y = AnyPlace(surface.Height());
    const double pen = Below(4) == 0 ? Fine(20) : Below(12);
    switch (Below(8)) {
      case 0: {
        const PixelRect rect{Below(80) - 20, Below(60) - 20, Below(50), Below(50)};
        surface.FillRect(rect, colour);
        plain.Fill(colour, [&](double px, double py) {
          return px > rect.left && px < rect.Right() && py > rect.top && py < rect.Bottom();
        });
        break;
      }
      case 1:
      case 2: {
        const double end = AnyPlace(80);
        const bool upright = Below(2) == 0;
        const double x2 = upright ? x : end;
        const double y2 = upright ? end : y;
        surface.DrawLine(x, y, x2, y2, pen, colour);
        plain.Fill(colour, [&](double px, double py) {
          return px > std::min(x, x2) - pen / 2 && px <= std::max(x, x2) + pen / 2 && py > std::min(y, y2) - pen / 2 &&
                 py <= std::max(y, y2) + pen / 2;
        });
        break;
      }
      case 3: {
        const double x1 = Fine(90) - 20;
        const double x2 = Fine(90) - 20;
        const double y2 = Fine(60);
        const double length = std::hypot(x2 - x1, y2 - y);
        surface.DrawLine(x1, y, x2, y2, pen, colour);
        plain.Fill(colour, [&](double px, double py) {
          return InTurnedBox(px - (x1 + x2) / 2, py - (y + y2) / 2, (x2 - x1) / length, (y2 - y) / length,
                             (length + pen) / 2, pen / 2);
        });
        break;
      }
      case 4:
      case 5: {
        const Pixel outline = Below(2) == 0 ? colour : AnyColour();
        const double radius = Below(2) == 0 ? Below(40) : Fine(40);
        surface.DrawCircle(x, y, radius, pen, outline, colour);
        plain.Fill(colour, [&](double px, double py) { return InDisc(px - x, py - y, radius - pen / 2); });
        // Painted apart from the inside, since a pixel that only passes through a colour has not changed.
        plain.Fill(outline, [&](double px, double py) {
          return InDisc(px - x, py - y, radius + pen / 2) && !InDisc(px - x, py - y, radius - pen / 2);
        });
        break;
      }
      case 6:
        surface.DrawDot(x, y, pen, colour);
        plain.Fill(colour, [&](double px, double py) {
          return InDisc(px - x, py - y, pen / 2) ||
                 (std::floor(px) == std::floor(x) && std::floor(py) == std::floor(y));
        });
        break;
      default: {
        const PixelRect rect = Intersect({Below(60) - 5, Below(40) - 5, Below(30), Below(30)}, surface.Bounds());
        for (int row = rect.top; row < rect.Bottom(); ++row) {
          for (int column = rect.left; column < rect.Right(); ++column) {
            const Pixel pixel = AnyColour();
            surface.Pixels().Row(row)[column] = pixel;
            plain.Paint(column, row, pixel);
            plain.changed.Set(column, row);
          }
        }
        surface.Changed(rect);
      }
    }
  }

  void ExpectSame() {
    const PixelView view = surface.Pixels();
    ASSERT_EQ(std::vector<Pixel>(view.pixels, view.pixels + plain.pixels.size()), plain.pixels);
    ASSERT_THAT(surface.Dirty().Spans(), ElementsAreArray(plain.changed.Spans()));
    const PixelRect rect = Intersect({Below(60), Below(40), 1 + Below(9), 1 + Below(9)}, surface.Bounds());
    const std::optional<Pixel> solid = surface.SolidColour(rect);
    for (int y = rect.top; solid && y < rect.Bottom(); ++y)
      for (int x = rect.left; x < rect.Right(); ++x) ASSERT_EQ(surface.At(x, y), *solid) << x << ", " << y;
  }

  void Take() {
    ExpectBandForm(surface.Dirty().Take(), plain.changed);
    plain.changed.Clear();
  }

  int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }

  Surface surface;
  PlainSurface plain;

 private:
  double Fine(int end) { return std::uniform_real_distribution<double>(0, end)(random_); }
  // Half of the places are on quarters, where edges meet centres.
  double AnyPlace(int size) { return Below(2) == 0 ? Fine(size) : Below(8 * size) / 4.0 - size / 2.0; }
  Pixel AnyColour() { return std::vector<Pixel>{kPaper, kInk, kRim}[static_cast<std::size_t>(Below(3))]; }

  std::mt19937 random_;
};

TEST(Surface, DrawsAndMarksTheSameAsAPlainSurface) {
  for (unsigned seed = 0; seed < 60; ++seed) {
    BothSurfaces both(61, 43, seed);
    for (int step = 0; step < 100; ++step) {
      SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
      both.DrawSomething();
      both.ExpectSame();
      if (both.Below(3) == 0) both.Take();
      if (HasFailure()) return;
    }
  }
}

TEST(Surface, KnowsAreasOfOneColour) {
  Surface surface;
  surface.Resize(20, 10, kPaper);
  surface.FillRect({5, 0, 10, 10}, kInk);
  EXPECT_EQ(surface.SolidColour({5, 0, 10, 10}), kInk);
  EXPECT_EQ(surface.SolidColour({4, 0, 10, 10}), std::nullopt);
  surface.FillRect(surface.Bounds(), kRim);
  EXPECT_EQ(surface.SolidColour(surface.Bounds()), kRim);
  surface.Changed({9, 9, 1, 1});
  EXPECT_EQ(surface.SolidColour(surface.Bounds()), std::nullopt);
}

TEST(Surface, ShowsPixelsOfOthersUntilItIsDrawnOn) {
  const std::pair<const char*, std::function<void(Surface&)>> cases[] = {
      {"rectangle",
       [](Surface& s) {
         s.FillRect({3, 2, 1, 1}, kInk);
       }},
      {"line", [](Surface& s) { s.DrawLine(3, 2.5, 4, 2.5, 0.1, kInk); }},
      {"disc", [](Surface& s) { s.DrawCircle(3.5, 2.5, 0.4, 0, kInk, kInk); }},
      {"dot", [](Surface& s) { s.DrawDot(3, 2, 1, kInk); }},
      {"paint", [](Surface& s) { s.Pixels().Row(2)[3] = kInk; }},
  };
  constexpr int kCount = 8 * 4;
  const std::shared_ptr<Pixel[]> shown(new Pixel[kCount]);
  std::fill_n(shown.get(), kCount, kRim);
  for (const auto& [kind, draw] : cases) {
    SCOPED_TRACE(kind);
    Surface surface;
    surface.Resize(8, 4, kPaper);
    surface.Dirty().Take();
    surface.ShowPixels(shown);
    EXPECT_THAT(surface.Dirty().Take(), ElementsAre(surface.Bounds()));
    surface.Changed(surface.Bounds());
    EXPECT_EQ(surface.SolidColour({0, 0, 1, 1}), std::nullopt);
    EXPECT_EQ(surface.Seen().pixels, shown.get());
    draw(surface);
    EXPECT_EQ(surface.At(3, 2), kInk);
    EXPECT_EQ(std::count(surface.Seen().pixels, surface.Seen().pixels + kCount, kRim), kCount - 1);
    EXPECT_EQ(surface.SolidColour({0, 0, 1, 1}), std::nullopt);
    surface.ShowPixels(shown);
    surface.Dirty().Take();
    surface.FillRect({-1, -1, 10, 10}, kPaper);
    EXPECT_THAT(surface.Dirty().Take(), ElementsAre(surface.Bounds()));
    EXPECT_EQ(surface.SolidColour(surface.Bounds()), kPaper);
    EXPECT_EQ(surface.At(3, 2), kPaper);
    surface.ShowPixels(shown);
    surface.Resize(2, 1, kInk);
    EXPECT_EQ(surface.At(1, 0), kInk);
  }
  EXPECT_EQ(std::count(shown.get(), shown.get() + kCount, kRim), kCount) << "not drawn on";
}

TEST(Surface, ResizingMakesEverythingDirty) {
  Surface surface;
  EXPECT_TRUE(surface.Dirty().IsEmpty());
  surface.DrawLine(0, 0, 5, 5, 3, kInk);
  surface.Resize(20, 10, kPaper);
  surface.FillRect(surface.Bounds(), kInk);
  surface.Resize(10, 20, kRim);
  EXPECT_THAT(surface.Dirty().Take(), ElementsAre(PixelRect{0, 0, 10, 20}));
  surface.FillRect(surface.Bounds(), kRim);
  EXPECT_TRUE(surface.Dirty().IsEmpty());
  surface.FillRect({0, 0, 3, 3}, kInk);
  EXPECT_THAT(surface.Dirty().Take(), ElementsAre(PixelRect{0, 0, 3, 3}));
  surface.Resize(0, -4, kPaper);
  surface.DrawDot(0, 0, 30, kInk);
  EXPECT_THAT(surface.Dirty().Take(), IsEmpty());
}

TEST(DirtyRegion, JoinsSimilarRowsAndSmallGaps) {
  const std::tuple<const char*, std::vector<PixelRect>, std::vector<PixelRect>> cases[] = {
      {"a rectangle is one", {{3, 2, 10, 9}}, {{3, 2, 10, 9}}},
      {"two that touch are one", {{3, 2, 10, 9}, {13, 2, 4, 9}}, {{3, 2, 14, 9}}},
      {"two far apart share their bands", {{0, 0, 2, 4}, {9, 1, 2, 3}}, {{0, 0, 2, 1}, {0, 1, 2, 3}, {9, 1, 2, 3}}},
      {"a gap of a quarter", {{0, 0, 3, 1}, {4, 0, 6, 1}}, {{0, 0, 10, 1}}},
      {"a gap of more", {{0, 0, 3, 1}, {5, 0, 2, 1}}, {{0, 0, 3, 1}, {5, 0, 2, 1}}},
      {"a shift that wastes a fifth", {{0, 0, 4, 1}, {1, 1, 4, 1}}, {{0, 0, 5, 2}}},
      {"a shift that wastes a third", {{0, 0, 2, 1}, {1, 1, 2, 1}}, {{0, 0, 2, 1}, {1, 1, 2, 1}}},
      {"an empty row parts bands", {{0, 0, 4, 2}, {0, 3, 4, 1}}, {{0, 0, 4, 2}, {0, 3, 4, 1}}},
      {"columns that would run together",
       {{0, 0, 10, 1}, {12, 0, 30, 1}, {0, 1, 11, 1}, {20, 1, 22, 1}, {0, 2, 12, 1}, {30, 2, 12, 1}},
       {{0, 0, 42, 2}, {0, 2, 12, 1}, {30, 2, 12, 1}}},
  };
  for (const auto& [name, added, taken] : cases) {
    SCOPED_TRACE(name);
    DirtyRegion region;
    region.Reset(64, 16);
    for (const PixelRect& rect : added) region.Add(rect);
    EXPECT_FALSE(region.IsEmpty());
    EXPECT_THAT(region.Take(), ElementsAreArray(taken));
    EXPECT_TRUE(region.IsEmpty());
    EXPECT_THAT(region.Take(), IsEmpty());
  }
}

TEST(DirtyRegion, CoversAllPixelsInAnyOrder) {
  constexpr int width = 40;
  constexpr int height = 12;
  std::mt19937 random(7);
  const auto up_to = [&random](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); };
  DirtyRegion region;
  region.Reset(width, height);
  for (int round = 0; round < 2000; ++round) {
    PixelSet changed(width, height);
    const int longest = 1 + up_to(width - 1);
    for (int count = up_to(60); count >= 0; --count) {
      const int y = up_to(height - 1);
      const int left = up_to(width);
      const int right = std::min(width, left + up_to(longest));
      region.Add(y, left, right);
      for (int x = left; x < right; ++x) changed.Set(x, y);
    }
    ASSERT_THAT(region.Spans(), ElementsAreArray(changed.Spans()));
    ASSERT_EQ(region.IsEmpty(), changed.Spans().empty());
    ExpectBandForm(region.Take(), changed);
    if (testing::Test::HasFailure()) FAIL() << "round " << round;
  }
}

TEST(DirtyRegion, IsEmptyAfterReset) {
  DirtyRegion region;
  EXPECT_TRUE(region.IsEmpty());
  region.Reset(8, 8);
  region.Add({0, 0, 8, 8});
  region.Reset(4, 2);
  EXPECT_TRUE(region.IsEmpty());
  region.Add({0, 0, 4, 2});
  EXPECT_THAT(region.Take(), ElementsAre(PixelRect{0, 0, 4, 2}));
}

}  // namespace
}  // namespace quorvale
