#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <set>

#include "win32/toolkit/platform_fixture.h"

namespace quorvale {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using WindowTest = PlatformFixture;

TEST_F(WindowTest, ReportsInputToFormOrBox) {
  Show();
  log.clear();
  const std::tuple<HWND, UINT, WPARAM, LPARAM, std::vector<std::string>> cases[] = {
      {BoxWindow(), WM_KEYDOWN, VK_SPACE, 0, {"key 32"}},
      {BoxWindow(), WM_SYSKEYDOWN, VK_MENU, 0, {"key 18"}},
      {BoxWindow(), WM_LBUTTONDOWN, 0, MAKELPARAM(7, 9), {"box press 7 9"}},
      {BoxWindow(), WM_CLOSE, 0, 0, {}},
      {FormWindow(), WM_RBUTTONDOWN, 0, 0, {"form press"}},
      {FormWindow(), WM_CLOSE, 0, 0, {"close"}},
      {FormWindow(), WM_DISPLAYCHANGE, 32, MAKELPARAM(640, 480), {"screen"}},
  };
  for (const bool fails : {false, true}) {
    handlers_throw_ = fails;
    for (const auto& [window, message, first, second, events] : cases) {
      SCOPED_TRACE(message);
      SendMessageW(window, message, first, second);
      EXPECT_EQ(log, events);
      log.clear();
      EXPECT_TRUE(IsWindow(window));
    }
  }
}

TEST_F(WindowTest, IgnoresMovesToTheSamePlace) {
  Show();
  log.clear();
  for (int i = 0; i < 3; ++i) SendMessageW(BoxWindow(), WM_MOUSEMOVE, 0, 0);
  EXPECT_LE(log.size(), 1U);
}

TEST_F(WindowTest, PresentsDirtyPixelsInTheNextPass) {
  Show();
  surface_.FillRect({10, 20, 30, 5}, ToPixel(0x0000FF));
  box_->Invalidate();
  EXPECT_EQ(OnScreen(10, 20), RGB(0, 0, 0));
  platform_.PumpEvents();
  EXPECT_EQ(OnScreen(10, 20), RGB(255, 0, 0));
  EXPECT_EQ(OnScreen(39, 24), RGB(255, 0, 0));
  EXPECT_EQ(OnScreen(40, 24), RGB(0, 0, 0));
  EXPECT_TRUE(surface_.Dirty().IsEmpty());
}

TEST_F(WindowTest, ReportsALossOfTheScreenOnceAndComesBack) {
  Show();
  ASSERT_TRUE(RunUntil([] { return GetForegroundWindow() != nullptr; }));
  const std::vector<std::function<void()>> losses = {[this] { ShowWindow(FormWindow(), SW_MINIMIZE); },
                                                     [this] { ShowWindow(FormWindow(), SW_HIDE); },
                                                     [] { SetForegroundWindow(GetDesktopWindow()); }};
  for (const auto& lose : losses) {
    SetForegroundWindow(FormWindow());
    Settle();
    log.clear();
    lose();
    EXPECT_TRUE(RunUntil([&] { return !log.empty(); }));
    EXPECT_EQ(log.front(), "deactivated");
    EXPECT_TRUE(IsWindowVisible(FormWindow()));
    EXPECT_FALSE(IsIconic(FormWindow()));
    EXPECT_EQ(std::count(log.begin(), log.end(), "deactivated"), 1) << "one loss comes with several messages";
  }
  window_->SetVisible(false);
  log.clear();
  SetForegroundWindow(GetDesktopWindow());
  platform_.PumpEvents();
  EXPECT_THAT(log, IsEmpty());
}

// While the program's own box is there, it is what the user works with.
TEST_F(WindowTest, ReportsALossBehindABoxOnceTheBoxHasGone) {
  Show();
  Settle();
  log.clear();
  EnableWindow(FormWindow(), FALSE);
  SetForegroundWindow(GetDesktopWindow());
  platform_.PumpEvents();
  EXPECT_THAT(log, IsEmpty());
  EnableWindow(FormWindow(), TRUE);
  platform_.PumpEvents();
  EXPECT_THAT(log, ElementsAre("deactivated"));
}

// The password box disables and enables the window while the loss is being reported.
TEST_F(WindowTest, ABoxOfTheHandlerIsNoSecondLoss) {
  Show();
  Settle();
  log.clear();
  on_deactivated_ = [this] {
    for (int boxes = 0; boxes < 2; ++boxes) {
      EnableWindow(FormWindow(), FALSE);
      SetForegroundWindow(GetDesktopWindow());
      platform_.PumpEvents();
      EnableWindow(FormWindow(), TRUE);
      platform_.PumpEvents();
    }
  };
  SetForegroundWindow(GetDesktopWindow());
  EXPECT_TRUE(RunUntil([&] { return !log.empty(); }));
  Settle();
  EXPECT_THAT(log, ElementsAre("deactivated"));
}

// The system has few contexts, and a show presents for days.
TEST_F(WindowTest, ReleasesTheContextOfEachFrame) {
  Show();
  std::set<HDC> contexts;
  for (int i = 0; i < 100; ++i) {
    surface_.FillRect({i, 0, 1, 1}, ToPixel(kWhite));
    box_->Present();
    const HDC context = GetDC(BoxWindow());
    contexts.insert(context);
    ReleaseDC(BoxWindow(), context);
  }
  EXPECT_LT(contexts.size(), 10U);
}

// The hook sees every system command that the window passes on.
TEST_F(WindowTest, KeepsTheSystemFromStartingASaver) {
  static std::vector<WPARAM> commands;
  commands.clear();
  const HHOOK hook = SetWindowsHookExW(
      WH_CBT,
      [](int code, WPARAM first, LPARAM second) -> LRESULT {
        if (code == HCBT_SYSCOMMAND) commands.push_back(first);
        return code == HCBT_SYSCOMMAND ? 1 : CallNextHookEx(nullptr, code, first, second);
      },
      nullptr, GetCurrentThreadId());
  Show();
  for (const WPARAM command : {SC_SCREENSAVE, SC_SCREENSAVE + 2, SC_MONITORPOWER}) {
    SendMessageW(FormWindow(), WM_SYSCOMMAND, command, 0);
  }
  UnhookWindowsHookEx(hook);
  EXPECT_THAT(commands, ElementsAre(SC_MONITORPOWER));
}

TEST_F(WindowTest, KeepsHiddenPixelsDirty) {
  Show();
  window_->SetVisible(false);
  surface_.FillRect({0, 0, 5, 5}, ToPixel(kWhite));
  box_->Present();
  EXPECT_FALSE(surface_.Dirty().IsEmpty());
  window_->SetVisible(true);
  platform_.PumpEvents();
  EXPECT_EQ(OnScreen(2, 2), RGB(255, 255, 255));
}

class PacedWindow : public WindowTest {
 protected:
  PacedWindow() : WindowTest({std::chrono::milliseconds(500), std::chrono::milliseconds(500)}) {}

  static constexpr int kPasses = 20;

  // Paced passes take 10 seconds. On a busy machine an empty pass can take 20 ms by itself.
  static bool IsPaced(PacedRun& run) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kPasses; ++i) run.PumpEvents();
    return std::chrono::steady_clock::now() - start > std::chrono::seconds(5);
  }
};

TEST_F(PacedWindow, PacesOnlyWhatIsVisible) {
  Show();
  const auto run = platform_.OpenPacedRun(*box_);
  EXPECT_TRUE(IsPaced(*run));
  box_.reset();
  EXPECT_FALSE(IsPaced(*run));
}

// An effect that began inside a box could hold the box back for half a minute.
TEST_F(PacedWindow, DoesNotPaceABoxThatHasItsAnswer) {
  Show();
  const auto run = platform_.OpenPacedRun(*box_);
  std::unique_ptr<TimerPeer> timer = platform_.CreateTimerPeer([&] {
    // The system shows a box once nothing else is pending.
    const HWND box = FindWindowW(L"#32770", L"Title of the program");
    if (IsWindowVisible(box) == 0) return;
    timer->Set(0);
    run->PumpEvents();
    PostMessageW(box, WM_CLOSE, 0, 0);
    platform_.PumpEvents();
    EXPECT_FALSE(IsPaced(*run));
  });
  timer->Set(50);
  platform_.ShowMessageBox({.text = "text"});
  EXPECT_TRUE(IsPaced(*run)) << "and it ends there";
}

TEST_F(WindowTest, HookReportsOnlyChosenMessages) {
  std::vector<int> arrived;
  auto hook = platform_.CreateMessageHookPeer([&](int message) { arrived.push_back(message); });
  hook->Watch(box_->Handle());
  hook->Report(WM_CLOSE);
  SendMessageW(BoxWindow(), WM_CLOSE, 0, 0);
  SendMessageW(BoxWindow(), WM_EXITMENULOOP, 0, 0);
  EXPECT_THAT(arrived, ElementsAre(WM_CLOSE));
  hook->Watch(window_->Handle());
  SendMessageW(BoxWindow(), WM_CLOSE, 0, 0);
  EXPECT_THAT(arrived, ElementsAre(WM_CLOSE));
  window_.reset();  // the window goes before its hook
  hook.reset();
}

TEST_F(WindowTest, TimersRepeatUntilTheyAreStopped) {
  int fired = 0;
  const auto timer = platform_.CreateTimerPeer([&] { ++fired; });
  timer->Set(60'000);
  timer->Set(20);
  EXPECT_TRUE(RunUntil([&] { return fired >= 3; }));
  Sleep(60);  // the next one is due
  timer->Set(0);
  const int fired_before = fired;
  platform_.PumpEvents();
  EXPECT_EQ(fired, fired_before);
}

TEST_F(WindowTest, TextStaysInsideItsChangedArea) {
  const PixelView pixels = surface_.Pixels();
  const Font font{"MS Serif", 12};
  const PixelRect size = platform_.Text().Measure("Wager", font, 1);
  const PixelRect doubled = platform_.Text().Measure("Wager", font, 2);
  EXPECT_GT(size.width, 20);
  EXPECT_NEAR(doubled.height, 2 * size.height, 3);
  const PixelRect changed = platform_.Text().Draw(pixels, 180, 90, "Wager", font, kWhite, 1);
  int outside = 0;
  int inside = 0;
  for (int y = 0; y < pixels.height; ++y) {
    for (int x = 0; x < pixels.width; ++x) {
      if (pixels.Row(y)[x] == ToPixel(kBlack)) continue;
      const bool is_inside = x >= changed.left && x < changed.Right() && y >= changed.top && y < changed.Bottom();
      ++(is_inside ? inside : outside);
    }
  }
  EXPECT_EQ(outside, 0);
  EXPECT_GT(inside, 10);
  EXPECT_EQ(changed, Intersect(changed, pixels.Bounds()));
}

}  // namespace
}  // namespace quorvale
