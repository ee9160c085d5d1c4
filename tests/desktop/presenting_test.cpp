#include <gmock/gmock.h>

#include <algorithm>
#include <random>

#include "desktop/window_fixture.h"
#include "platform/desktop/toolkit/join_bands.h"
#include "toolkit/surface.h"

namespace quorvale {
namespace {

using testing::ElementsAreArray;

constexpr Pixel kRed = 0xFFFF0000;
constexpr Pixel kGreen = 0xFF00FF00;

class Presenting : public WindowFixture {
 protected:
  Presenting() {
    AddSurface();
    Show();
  }

  // Changes every pixel without marking it dirty.
  void PaintUnseen(Pixel colour) {
    const PixelView pixels = surface_.Pixels();
    std::fill_n(pixels.pixels, pixels.stride * pixels.height, colour);
  }

  int CountOnScreen(Pixel colour) {
    const QImage image = OnScreen();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      const auto* const row = reinterpret_cast<const Pixel*>(image.constScanLine(y));
      count += static_cast<int>(std::count(row, row + image.width(), colour));
    }
    return count;
  }
};

TEST_F(Presenting, PresentsDrawingsInTheNextPass) {
  surface_.FillRect({10, 20, 300, 200}, kRed);
  surface_.DrawCircle(400, 300, 150, 5, kGreen, kGreen);
  surface_peer_->Invalidate();
  EXPECT_EQ(CountOnScreen(kRed), 0);
  platform_.PumpEvents();

  const QImage image = OnScreen();
  for (int y = 0; y < surface_.Height(); ++y) {
    for (int x = 0; x < surface_.Width(); ++x) ASSERT_EQ(image.pixel(x, y), surface_.At(x, y)) << x << ", " << y;
  }
}

TEST_F(Presenting, PresentsAtOnceWithoutDeliveringEvents) {
  QCoreApplication::postEvent(&FormWindow(), new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier));
  surface_.FillRect({0, 0, 10, 10}, kRed);
  surface_peer_->Present();
  EXPECT_EQ(CountOnScreen(kRed), 100);
  EXPECT_THAT(log, testing::IsEmpty());
}

TEST_F(Presenting, PresentsDirtyPixelsOnly) {
  PaintUnseen(kGreen);
  surface_.Changed({5, 5, 40, 10});
  surface_.Changed({600, 400, 30, 30});
  surface_peer_->Invalidate();
  platform_.PumpEvents();
  EXPECT_EQ(CountOnScreen(kGreen), 40 * 10 + 30 * 30);
}

TEST_F(Presenting, PresentsWhatWasDrawnOutOfSight) {
  window_->SetVisible(false);
  platform_.PumpEvents();
  surface_.FillRect({0, 0, 10, 10}, kRed);
  surface_peer_->Invalidate();
  platform_.PumpEvents();
  Show();
  EXPECT_EQ(CountOnScreen(kRed), 100);
}

TEST_F(Presenting, FollowsTheSizeOfTheBox) {
  surface_.Resize(200, 100, kRed);
  surface_peer_->SetBounds({50, 60, 200, 100});
  surface_peer_->Invalidate();
  platform_.PumpEvents();
  EXPECT_EQ(BoxWindow().geometry(), QRect(50, 60, 200, 100));
  EXPECT_EQ(CountOnScreen(kRed), 200 * 100);

  surface_.Resize(0, 0, kRed);
  surface_peer_->SetBounds({0, 0, 0, 0});
  platform_.PumpEvents();
  EXPECT_FALSE(BoxWindow().isVisible());
}

TEST(JoinBands, JoinsWhereTheAddedPixelsCostLessThanARectangle) {
  const std::tuple<const char*, std::vector<PixelRect>, std::vector<PixelRect>> cases[] = {
      {"nothing", {}, {}},
      {"one", {{1, 2, 3, 4}}, {{1, 2, 3, 4}}},
      {"steps of a slope", {{10, 0, 5, 1}, {11, 1, 5, 1}, {12, 2, 5, 1}}, {{10, 0, 7, 3}}},
      {"two slopes", {{10, 0, 5, 1}, {900, 0, 5, 1}, {9, 1, 5, 1}, {902, 1, 5, 1}}, {{9, 0, 6, 2}, {900, 0, 7, 2}}},
      {"slopes that meet", {{10, 0, 40, 1}, {70, 0, 40, 1}, {40, 1, 40, 1}}, {{10, 0, 100, 2}}},
      {"far apart in a row", {{0, 0, 10, 10}, {500, 0, 10, 10}}, {{0, 0, 10, 10}, {500, 0, 10, 10}}},
      {"rows between", {{0, 0, 9, 1}, {0, 2, 9, 1}}, {{0, 0, 9, 1}, {0, 2, 9, 1}}},
      {"too much to add", {{0, 0, 100, 100}, {90, 100, 100, 100}}, {{0, 0, 100, 100}, {90, 100, 100, 100}}},
  };
  BandJoiner joiner;
  for (const auto& [what, rects, joined] : cases) EXPECT_THAT(joiner.Join(rects), ElementsAreArray(joined)) << what;
}

// Qt makes a region of the rectangles unchecked, so they must be in a region's order.
TEST(JoinBands, CoversEveryShapeInOrderlyBands) {
  std::mt19937 generator(7);
  const auto random = [&generator](int below) { return static_cast<int>(generator() % static_cast<unsigned>(below)); };
  Surface surface;
  surface.Resize(400, 300, 0);
  BandJoiner joiner;
  for (int round = 0; round < 200; ++round) {
    surface.Dirty().Take();
    for (int shape = 0; shape < 3; ++shape) {
      const auto colour = static_cast<Pixel>(generator());
      surface.DrawCircle(random(400), random(300), random(200), random(9), colour, ~colour);
      surface.DrawLine(random(400), random(300), random(400), random(300), random(30), colour);
    }
    const std::vector<PixelRect> changed = surface.Dirty().Spans();
    const std::vector<PixelRect>& joined = joiner.Join(surface.Dirty().Take());

    std::vector<int> times(static_cast<std::size_t>(400) * 300);
    for (std::size_t i = 0; i < joined.size(); ++i) {
      const PixelRect& rect = joined[i];
      ASSERT_EQ(Intersect(rect, surface.Bounds()), rect);
      for (int y = rect.top; y < rect.Bottom(); ++y) {
        for (int x = rect.left; x < rect.Right(); ++x) ASSERT_EQ(++times[y * 400 + x], 1);
      }
      if (i == 0) continue;
      const PixelRect& last = joined[i - 1];
      const bool same_band = rect.top == last.top && rect.height == last.height && rect.left > last.Right();
      ASSERT_TRUE(same_band || rect.top >= last.Bottom());
    }
    for (const PixelRect& span : changed) {
      for (int x = span.left; x < span.Right(); ++x) ASSERT_EQ(times[span.top * 400 + x], 1);
    }
  }
}

}  // namespace
}  // namespace quorvale
