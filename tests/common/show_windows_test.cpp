#include <gmock/gmock.h>

#include "common/logged_events.h"
#include "platform/common/black_windows.h"
#include "platform/common/mouse_input.h"

namespace quorvale {

void LogDroppedEvent(const char* /*reason*/) noexcept {}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Log = std::vector<std::string>;

class LoggedWindow : public BlackWindow {
 public:
  LoggedWindow(Log& log, int number) : log_(log), name_(std::to_string(number)) {}
  ~LoggedWindow() override { log_.push_back(name_ + " ends"); }
  LoggedWindow(const LoggedWindow&) = delete;
  LoggedWindow& operator=(const LoggedWindow&) = delete;
  void Cover(const PixelRect& monitor) override { log_.push_back(name_ + " at " + std::to_string(monitor.left)); }
  void Hide() override { log_.push_back(name_ + " hides"); }

 private:
  Log& log_;
  std::string name_;
};

// A window may be delivering the event in which the monitors change, so none ends before all do.
TEST(BlackWindows, CoverAllMonitorsButThePrimaryOneAndItsMirrors) {
  Log log;
  std::vector<PixelRect> monitors{{0, 0, 800, 600}, {0, 0, 640, 480}, {800, 0, 800, 600}, {1600, 0, 9, 9}};
  int count = 0;
  BlackWindows windows([&] { return monitors; }, [&] { return std::make_unique<LoggedWindow>(log, ++count); });
  EXPECT_THAT(std::exchange(log, {}), ElementsAre("1 at 800", "2 at 1600"));
  monitors = {{800, 0, 800, 600}, {0, 0, 800, 600}};
  windows.CoverMonitors();
  EXPECT_THAT(std::exchange(log, {}), ElementsAre("1 at 0", "2 hides"));
  monitors.clear();
  windows.CoverMonitors();
  EXPECT_THAT(std::exchange(log, {}), ElementsAre("1 hides", "2 hides"));
  windows.Hide();
  log.clear();
  monitors = {{0, 0, 800, 600}, {800, 0, 800, 600}};
  windows.CoverMonitors();
  EXPECT_THAT(log, IsEmpty());
}

TEST(MouseInput, ReportsMovesOfAPointerThatIsElsewhereThanItWas) {
  LoggedEvents events;
  MouseInput mouse(events);
  mouse.SetPointer({5, 5});
  mouse.ReportMove({5, 5});
  mouse.ReportMove(events, {5, 5}, {1, 1});
  mouse.ReportMove(events, {6, 5}, {1.9, -0.1});
  mouse.ReportMove({6, 5});
  mouse.ReportMove({6, 6});
  mouse.ReportDown();
  mouse.ReportDown(events, {2.5, 3});
  EXPECT_THAT(std::exchange(events.log, {}), ElementsAre("box move 1 -1", "form move", "form press", "box press 2 3"));

  // A disabled form gets nothing, but where the pointer is stays known.
  mouse.SetEnabled(false);
  mouse.ReportMove({7, 7});
  mouse.ReportDown();
  mouse.ReportDown(events, {0, 0});
  mouse.SetEnabled(true);
  mouse.ReportMove({7, 7});
  EXPECT_THAT(events.log, IsEmpty());
}

}  // namespace
}  // namespace quorvale
