#include "toolkit/surface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "toolkit/band_form.h"

namespace quorvale {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

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

struct ShapeCase {
  const char* name;
  std::function<void(Surface&)> draw;
  std::vector<std::string> look;
};

TEST(Surface, ShapesCoverThePixelsWhoseCentresAreInside) {
  const ShapeCase cases[] = {
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
  for (const ShapeCase& each : cases) {
    SCOPED_TRACE(each.name);
    Surface surface;
    surface.Resize(8, 5, kPaper);
    each.draw(surface);
    EXPECT_THAT(Look(surface), ElementsAreArray(each.look));
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

}  // namespace
}  // namespace quorvale
