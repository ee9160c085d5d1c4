#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMessageBox>
#include <QTimer>
#include <chrono>

#include "desktop/window_fixture.h"
#include "platform/common/pacing.h"
#include "platform/desktop/toolkit/event_loop.h"

namespace quorvale {
namespace {

using namespace std::chrono_literals;
using std::chrono::nanoseconds;

nanoseconds TimeOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::steady_clock::now() - start;
}

class PacedRunTest : public WindowFixture {
 protected:
  explicit PacedRunTest(PassLengths lengths) : WindowFixture(lengths) {
    AddSurface();
    surface_peer_->Invalidate();
    Show();
    run_ = platform_.OpenPacedRun(*surface_peer_);
  }

  nanoseconds TimeOfPasses(int count) {
    return TimeOf([&] {
      for (int i = 0; i < count; ++i) run_->PumpEvents();
    });
  }

  std::unique_ptr<PacedRun> run_;
};

struct ShortPasses : PacedRunTest {
  ShortPasses() : PacedRunTest({100us, 20ms}) {}
};

// The rest at the end, less than a millisecond, is left out, and one overshoot may have been given back.
TEST_F(ShortPasses, TakeTheirNominalLength) { EXPECT_GE(TimeOfPasses(200), 18ms); }

TEST_F(ShortPasses, TakeLongerWhenTheyPresent) {
  surface_.FillRect({0, 0, 10, 10}, 0xFFFF0000);
  surface_peer_->Invalidate();
  EXPECT_GE(TimeOfPasses(1), 18ms);
}

struct LongPasses : PacedRunTest {
  LongPasses() : PacedRunTest({30s, 30s}) {}
};

TEST_F(LongPasses, EndWithTheFirstEvent) {
  QTimer::singleShot(20, &FormWindow(), [this] { log.emplace_back("timer"); });
  EXPECT_LT(TimeOfPasses(1), 15s);
  EXPECT_THAT(log, testing::ElementsAre("timer"));
}

TEST_F(LongPasses, TakeNoTimeOutOfSightOrWithoutTheSurface) {
  window_->SetVisible(false);
  EXPECT_LT(TimeOfPasses(100), 15s);
  window_->SetVisible(true);
  platform_.PumpEvents();
  QTimer::singleShot(0, &FormWindow(), [this] { surface_peer_.reset(); });
  EXPECT_LT(TimeOfPasses(100), 15s) << "the surface goes during a pass";
  EXPECT_LT(TimeOfPasses(100), 15s);
}

// A box waited up to 35 seconds for an effect that had begun inside it.
TEST_F(LongPasses, DoNotWaitOnceTheirBoxIsAnswered) {
  QTimer::singleShot(0, &FormWindow(), [this] {
    qobject_cast<QMessageBox*>(QApplication::activeModalWidget())->button(QMessageBox::Ok)->click();
    EXPECT_LT(TimeOfPasses(100), 15s);
  });
  platform_.ShowMessageBox({.text = "text"});
  QTimer::singleShot(50, &FormWindow(), [] {});
  EXPECT_GE(TimeOfPasses(1), 20ms) << "and it ends there";
}

TEST_F(LongPasses, OnlyCountInsideARun) {
  EXPECT_LT(TimeOf([this] { platform_.PumpEvents(); }), 15s);
}

struct PassesWithoutLength : PacedRunTest {
  PassesWithoutLength() : PacedRunTest({0ns, 0ns}) {}
};

TEST_F(PassesWithoutLength, NeverWait) {
  EXPECT_LT(TimeOfPasses(20'000), 15s);  // 25 microseconds each would be 0.5 seconds; a wait never ends
}

TEST(QtTimerPeer, FiresUntilItIsStopped) {
  QEventLoop loop;
  int fired = 0;
  QtTimerPeer timer([&] {
    if (++fired == 3) loop.quit();
  });
  timer.Set(5);
  loop.exec();
  timer.Set(0);
  QTimer::singleShot(50, &loop, &QEventLoop::quit);
  loop.exec();
  EXPECT_EQ(fired, 3);
}

TEST(QtTimerPeer, RestartsWhenItIsSet) {
  QEventLoop loop;
  QElapsedTimer clock;
  QtTimerPeer timer([&] { loop.quit(); });
  timer.Set(60);
  QTimer::singleShot(30, &loop, [&] {
    timer.Set(60);
    clock.start();
  });
  loop.exec();
  ASSERT_TRUE(clock.isValid());
  EXPECT_GE(clock.elapsed(), 59);
}

TEST(QtTimerPeer, MayBeDestroyedWhileItFires) {
  QEventLoop loop;
  int fired = 0;
  std::unique_ptr<QtTimerPeer> timer;
  timer = std::make_unique<QtTimerPeer>([&] {
    ++fired;
    timer.reset();
    QTimer::singleShot(30, &loop, &QEventLoop::quit);
  });
  timer->Set(1);
  loop.exec();
  EXPECT_EQ(fired, 1);
}

}  // namespace
}  // namespace quorvale
