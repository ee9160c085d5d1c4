#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include "platform/desktop/toolkit/event_loop.h"

namespace quorvale {
namespace {

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
