#include "process/process.h"

#include <algorithm>

#include "support/show_fixture.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;

class EndSaverTest : public ShowTest {};

TEST_F(EndSaverTest, TheCursorIsDrivenPastWhateverCountItHad) {
  for (const auto& [before, on, off] : std::vector<std::tuple<int, int, int>>{
           {0, 6, -6}, {-6, 6, -7}, {-40, 6, -41}, {5, 6, -6}, {6, 7, -6}, {40, 41, -6}}) {
    desktop.windows.cursor_count = before;
    ForceCursorOn(process);
    EXPECT_EQ(desktop.windows.cursor_count, on) << before;
    desktop.windows.cursor_count = before;
    ForceCursorOff(process);
    EXPECT_EQ(desktop.windows.cursor_count, off) << before;
  }
}

TEST_F(EndSaverTest, EventsRunOnceMoreThenTheDialogIsGivenBackAndTheProcessEnds) {
  process.ConfigDialogHwnd = desktop.windows.CreateForeign("Display Properties");
  desktop.windows.EnableWindow(process.ConfigDialogHwnd, false);
  desktop.calls.clear();
  ForceCursorOff(process);
  desktop.queue.Post([&] {
    EXPECT_EQ(desktop.windows.cursor_count, 6);
    desktop.calls.emplace_back("event");
  });
  EXPECT_THROW(EndSaver(process), ProcessEnded);
  EXPECT_THAT(desktop.calls,
              ElementsAre("event", "EnableWindow " + std::to_string(process.ConfigDialogHwnd) + " true", "EndProcess"));
  EXPECT_TRUE(desktop.windows.Find(process.ConfigDialogHwnd)->enabled);
  EXPECT_EQ(desktop.queue.PumpCount(), 1);
}

TEST_F(EndSaverTest, NoFormUnloads) {
  Start();
  EXPECT_THROW(EndSaver(process), ProcessEnded);
  EXPECT_EQ(process.app.Forms.Count(), 1);
  EXPECT_FALSE(process.show.StopRequested);
  EXPECT_EQ(desktop.host.ended, 1);
}

}  // namespace
}  // namespace quorvale
