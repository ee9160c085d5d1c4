#include "platform/headless/event_queue.h"

#include <gmock/gmock.h>

namespace quorvale {
namespace {

using ::testing::ElementsAre;

class EventQueueTest : public ::testing::Test {
 protected:
  std::function<void()> Log(const std::string& what) {
    return [this, what] { log.push_back(what + " " + std::to_string(queue.Microseconds() / 1000)); };
  }

  EventQueue queue;
  std::vector<std::string> log;
};

TEST_F(EventQueueTest, TimersFireInOrderOfTime) {
  const auto slow = queue.CreateTimer(Log("slow"));
  const auto fast = queue.CreateTimer(Log("fast"));
  slow->Set(50);
  fast->Set(20);
  queue.Post(Log("posted"));
  queue.Advance(60);
  EXPECT_THAT(log, ElementsAre("posted 0", "fast 20", "fast 40", "slow 50", "fast 60"));
  EXPECT_EQ(queue.Milliseconds(), 60);
}

TEST_F(EventQueueTest, TimersMayDestroyThemselvesAndOthers) {
  std::unique_ptr<TimerPeer> other = queue.CreateTimer(Log("other"));
  std::unique_ptr<TimerPeer> timer = queue.CreateTimer([&] {
    Log("tick")();
    other.reset();
    timer.reset();
    Log("end")();
  });
  other->Set(10);
  timer->Set(5);
  queue.Advance(50);
  EXPECT_THAT(log, ElementsAre("tick 5", "end 5"));
  EXPECT_EQ(queue.RunningTimers(), 0);
}

TEST_F(EventQueueTest, PlannedActionsRunInTheirPassEvenIfPassesNest) {
  queue.AtPump(2, [&] {
    Log("second")();
    queue.Pump();
    Log("second is over")();
  });
  queue.AtPump(3, Log("third"));
  queue.AtPump(3, Log("third too"));
  queue.SetMicrosecondsPerPump(1000);
  queue.Pump();
  queue.Pump();
  EXPECT_THAT(log, ElementsAre("second 2", "third 3", "third too 3", "second is over 3"));
  EXPECT_EQ(queue.PumpCount(), 3);
}

}  // namespace
}  // namespace quorvale
