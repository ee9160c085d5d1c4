#include <gmock/gmock.h>

#include <algorithm>

#include "desktop/window_fixture.h"

namespace quorvale {
namespace {

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

}  // namespace
}  // namespace quorvale
