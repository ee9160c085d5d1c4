#include <gtest/gtest.h>

#include <algorithm>

#include "base/failure.h"
#include "process/failed_steps.h"
#include "process/process.h"
#include "process/show_state.h"
#include "support/show_fixture.h"

namespace quorvale {
namespace {

using testing::ElementsAre;

class EndSaverTest : public ShowTest {};

TEST_F(EndSaverTest, ShowsTheCursorWhateverItsCount) {
  const std::tuple<int, int, int> cases[] = {{0, 6, -6}, {-6, 6, -7}, {-40, 6, -41},
                                             {5, 6, -6}, {6, 7, -6},  {40, 41, -6}};
  for (const auto& [before, on, off] : cases) {
    desktop.windows.cursor_count = before;
    ForceCursorOn(process.system.windows);
    EXPECT_EQ(desktop.windows.cursor_count, on) << before;
    desktop.windows.cursor_count = before;
    ForceCursorOff(process.system.windows);
    EXPECT_EQ(desktop.windows.cursor_count, off) << before;
  }
}

TEST_F(EndSaverTest, PumpsThenEnablesTheDialogThenEnds) {
  process.config_dialog_hwnd = desktop.windows.CreateForeign("Display Properties");
  desktop.windows.EnableWindow(process.config_dialog_hwnd, false);
  desktop.calls.clear();
  ForceCursorOff(process.system.windows);
  desktop.queue.Post([&] {
    EXPECT_EQ(desktop.windows.cursor_count, 6);
    desktop.calls.emplace_back("event");
  });
  EXPECT_THROW(EndSaver(process), ProcessEnded);
  EXPECT_THAT(
      desktop.calls,
      ElementsAre("event", "EnableWindow " + std::to_string(process.config_dialog_hwnd) + " true", "EndProcess"));
  EXPECT_TRUE(desktop.windows.Find(process.config_dialog_hwnd)->enabled);
  EXPECT_EQ(desktop.queue.PumpCount(), 1);
}

TEST_F(EndSaverTest, NoFormUnloads) {
  Start();
  EXPECT_THROW(EndSaver(process), ProcessEnded);
  EXPECT_EQ(process.app.forms.Count(), 1);
  EXPECT_FALSE(process.show.stop_requested);
  EXPECT_EQ(desktop.host.ended, 1);
}

bool Fail() { throw Failure(FailureNumber::kInvalidValue, "No", "Test"); }

TEST(RulesTest, AStepDropsAFailureAndNothingElse) {
  std::string run;
  Step([&] {
    run += 'a';
    Fail();
    run += 'b';
  });
  Step([&] { run += 'c'; });
  EXPECT_EQ(run, "ac");
  EXPECT_THROW(Step([] { throw ProcessEnded(); }), ProcessEnded);
}

TEST(RulesTest, ABranchIsTakenWhenItsTestFails) {
  std::string run;
  const auto add = [&](char c) { return [&run, c] { run += c; }; };
  StepIf([] { return true; }, add('a'));
  StepIf([] { return false; }, add('b'));
  StepIf(Fail, add('c'));
  StepIf(Fail, add('d'), add('e'));
  StepIf([] { return false; }, add('f'), add('g'));
  EXPECT_EQ(run, "acdg");
  EXPECT_THROW(StepIf([] { return true; }, Fail), Failure) << "the body is not covered";
  EXPECT_THROW(StepIf([]() -> bool { throw ProcessEnded(); }, add('h')), ProcessEnded);
}

TEST(CollectionTest, PositionsCountFromOne) {
  Collection collection({"a", "b"});
  EXPECT_EQ(collection.Item(1) + collection.Item(2), "ab");
  for (const int index : {-1, 0, 3}) EXPECT_THROW(collection.Item(index), Failure) << index;
}

}  // namespace
}  // namespace quorvale
