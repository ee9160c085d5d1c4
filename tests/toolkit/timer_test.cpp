#include "toolkit/nonvisual_controls.h"

#include <limits>

#include "base/failure.h"
#include "support/headless_fixture.h"
#include "toolkit/scripted_form.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;

class TimerTest : public HeadlessTest {
 protected:
  void SetUp() override {
    form->Load();
    timer.Elapsed = [this] { ticks.push_back(desktop.queue.Milliseconds()); };
  }

  Application app{desktop};
  std::shared_ptr<ScriptedForm> form = std::make_shared<ScriptedForm>(app);
  Timer& timer = form->clock;
  std::vector<double> ticks;
};

TEST_F(TimerTest, FiresWhileEnabledAndRestartsWhenSet) {
  desktop.queue.Advance(150);
  timer.SetEnabled(true);
  desktop.queue.Advance(210);  // 250, 350
  timer.SetInterval(50);       // at 360
  desktop.queue.Advance(45);
  timer.SetInterval(50);  // at 405
  desktop.queue.Advance(60);
  timer.SetInterval(0);
  desktop.queue.Advance(500);
  timer.SetInterval(10);  // at 965
  desktop.queue.Advance(10);
  timer.SetEnabled(false);
  desktop.queue.Advance(500);
  EXPECT_THAT(ticks, ElementsAre(250, 350, 455, 975));
}

TEST_F(TimerTest, RoundsOrRefusesTheInterval) {
  const double infinity = std::numeric_limits<double>::infinity();
  const std::tuple<double, int, bool> cases[] = {
      {0.5, 0, false},  {1.5, 2, false}, {2.5, 2, false},     {65'535.4, 65'535, false}, {65'535.5, 65'535, true},
      {-0.4, 0, false}, {-0.6, 0, true}, {infinity, 0, true}, {std::nan(""), 0, true}};
  for (const auto& [given, kept, fails] : cases) {
    SCOPED_TRACE(given);
    if (fails) {
      EXPECT_EQ(FailureOf([&, to = given] { timer.SetInterval(to); }), FailureNumber::kInvalidValue);
    } else {
      timer.SetInterval(given);
    }
    EXPECT_EQ(timer.Interval(), kept);
  }
}

TEST_F(TimerTest, KeepsCountingWhenAnIntervalIsRefused) {
  timer.SetEnabled(true);
  desktop.queue.Advance(60);
  EXPECT_EQ(FailureOf([&] { timer.SetInterval(1e6); }), FailureNumber::kInvalidValue);
  desktop.queue.Advance(40);
  EXPECT_THAT(ticks, ElementsAre(100));
}

TEST_F(TimerTest, DropsEventsDuringItsOwnHandler) {
  timer.SetEnabled(true);
  timer.Elapsed = [this] {
    ticks.push_back(desktop.queue.Milliseconds());
    // Two intervals of pumps.
    for (int i = 0; i < 20; ++i) app.PumpEvents();
  };
  desktop.queue.SetMicrosecondsPerPump(10'000);
  desktop.queue.Advance(100);
  EXPECT_THAT(ticks, ElementsAre(100));
  desktop.queue.Advance(100);
  EXPECT_THAT(ticks, ElementsAre(100, 400));
}

TEST_F(TimerTest, SurvivesAHandlerThatFailsOrUnloadsTheForm) {
  timer.SetEnabled(true);
  timer.Elapsed = [this] {
    ticks.push_back(desktop.queue.Milliseconds());
    if (ticks.size() == 1) throw std::runtime_error("No");
    form->Unload();
    form.reset();
  };
  desktop.boxes.Answer(MessageBoxAnswer::kOk);
  desktop.queue.Advance(1000);
  EXPECT_THAT(ticks, ElementsAre(100, 200));
}

}  // namespace
}  // namespace quorvale
