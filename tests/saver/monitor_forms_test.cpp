#include "saver/monitor_forms.h"

#include <algorithm>

#include "support/show_fixture.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr PixelRect kSecond{800, 0, 640, 480};
constexpr PixelRect kThird{-320, 0, 320, 240};
// In which those that have waited for another's tick have their own, if it has no effect.
constexpr int kTurn = 10;  // milliseconds

// Pictures of one colour each: 0x000001, 0x000002 and so on, so that a pixel is the picture's place in the list.
class MonitorFormsTest : public ShowTest {
 protected:
  void SetUp() override {
    ShowTest::SetUp();
    SetOptions({{"Stretch", "1"}, {"Monitors", "A Picture on Each"}});
    Numbered(9);
    desktop.SetFurtherMonitors({kSecond});
  }

  void Numbered(int count) {
    std::vector<std::string> contents;
    for (int i = 1; i <= count; ++i) contents.push_back("picture 8 6 00000" + std::to_string(i));
    Pictures(contents);
  }

  // The window of the form there, or 0.
  WindowHandle FormAt(const PixelRect& place) {
    for (const auto& [handle, window] : desktop.windows.All()) {
      if (window.kind == WindowKind::kMonitor && window.visible && window.bounds == place) return handle;
    }
    return 0;
  }
  WindowHandle BoxAt(const PixelRect& place) {
    const WindowHandle form = FormAt(place);
    for (const auto& [handle, window] : desktop.windows.All()) {
      if (window.parent == form && window.surface != nullptr) return handle;
    }
    return 0;
  }
  // The picture in the last corner there; 0 is none.
  int PictureAt(const PixelRect& place) {
    const Surface& surface = *desktop.windows.Find(BoxAt(place))->surface;
    return static_cast<int>(RgbAt(surface, place.width - 1, place.height - 1));
  }
  int Primary() { return static_cast<int>(At(799, 599)); }
  int MonitorWindows() {
    return static_cast<int>(std::ranges::count_if(desktop.windows.All(), [](const auto& entry) {
      return entry.second.kind == WindowKind::kMonitor && entry.second.visible;
    }));
  }
  std::vector<int> Shown(const std::vector<PixelRect>& places) {
    std::vector<int> pictures{Primary()};
    for (const PixelRect& place : places) pictures.push_back(PictureAt(place));
    return pictures;
  }
};

TEST_F(MonitorFormsTest, TakeTheListsPicturesByTurns) {
  desktop.SetFurtherMonitors({kSecond, kThird});
  Sounds(9);
  Start();
  EXPECT_THAT(Shown({kSecond, kThird}), ElementsAre(0, 0, 0));
  FirstTick();
  desktop.queue.Advance(kTurn);
  EXPECT_THAT(Shown({kSecond, kThird}), ElementsAre(1, 2, 3));
  NextTick();
  EXPECT_THAT(Shown({kSecond, kThird}), ElementsAre(4, 5, 6));
  EXPECT_EQ(desktop.sound.played.size(), 2U) << "at the changes on the primary monitor";
  EXPECT_EQ(Position(), "6");
  EXPECT_EQ(process.app.forms.Count(), 1);
}

TEST_F(MonitorFormsTest, ShowWhatTheListsHave) {
  struct Case {
    const char* what;
    int pictures;
    const char* reset;
    const char* last;
    std::vector<int> first, next;
  };
  for (const Case& c : {Case{"one picture", 1, "0", "0", {1, 1}, {1, 1}},
                        {"no picture", 0, "0", "0", {0, 0}, {0, 0}},
                        {"an odd number", 3, "0", "2", {3, 1}, {2, 3}},
                        {"a list that begins anew", 9, "1", "6", {1, 2}, {3, 4}}}) {
    SCOPED_TRACE(c.what);
    process.settings.DeleteSetting("PictureFiles");
    Numbered(c.pictures);
    SetOptions({{"ResetPicList", c.reset}, {"LastPicture", c.last}});
    process.show.first_tick_over = false;
    process.show.stop_requested = false;
    Start();
    FirstTick();
    EXPECT_EQ(Shown({kSecond}), c.first);
    NextTick();
    EXPECT_EQ(Shown({kSecond}), c.next);
    form_->Unload();
    EXPECT_EQ(desktop.queue.RunningTimers(), 0);
  }
}

TEST_F(MonitorFormsTest, ExistOnlyWithAPictureOnEach) {
  for (const char* const value : {"", "Primary Only", "a picture on each", "1"}) {
    process.options.Set("Monitors", value);
    EXPECT_EQ(Start().Kind(), WindowKind::kSaver);
    desktop.SetFurtherMonitors({kSecond, kThird});
    FirstTick();
    EXPECT_EQ(MonitorWindows(), 0) << value;
    form_->Unload();
    process.show.stop_requested = false;
  }
}

// No natural size of the primary monitor, whose centre is elsewhere.
TEST_F(MonitorFormsTest, LayPicturesOutForTheirOwnMonitor) {
  SetOptions({{"Stretch", "0"}, {"BackColor", "255"}});
  Start();
  FirstTick();
  const Surface& surface = *desktop.windows.Find(BoxAt(kSecond))->surface;
  EXPECT_EQ(RgbAt(surface, 320 - 4, 240 - 3), 2U);
  EXPECT_EQ(RgbAt(surface, 320 + 3, 240 + 2), 2U);
  EXPECT_EQ(RgbAt(surface, 320 - 5, 240), 0xFF0000U);
  EXPECT_EQ(RgbAt(surface, 320 + 4, 240), 0xFF0000U);
}

TEST_F(MonitorFormsTest, EndTheShowAtInput) {
  const std::vector<Ending> cases = {
      {"a key", [&] { desktop.PressKey(BoxAt(kSecond), 65); }, true},
      {"a press", [&] { desktop.PressMouse(BoxAt(kSecond), 5, 5); }, true},
      {"a request to close", [&] { desktop.RequestClose(FormAt(kSecond)); }, true},
      {"nine moves", [&] { Moves(BoxAt(kSecond), 9); }, false},
      {"ten moves on two monitors",
       [&] {
         Moves(BoxAt(kSecond), 5);
         Moves(form_->PicBase.Hwnd(), 5);
       },
       true},
  };
  CheckEndings(cases, [&](bool ends) { EXPECT_EQ(MonitorWindows(), ends ? 0 : 1); });
}

TEST_F(MonitorFormsTest, FollowTheMonitors) {
  struct Case {
    const char* what;
    std::vector<PixelRect> now;
    std::vector<int> at_once, next;
  };
  for (const Case& c : {Case{"another one", {kSecond, kThird}, {1, 2, 0}, {4, 5, 3}},
                        {"the same", {kSecond}, {1, 2}, {3, 4}},
                        {"none", {}, {1}, {3}},
                        {"one in another place", {kThird}, {1, 2}, {3, 4}}}) {
    SCOPED_TRACE(c.what);
    desktop.SetFurtherMonitors({kSecond});
    process.options.Set("LastPicture", "0");
    process.show.stop_requested = false;
    Start();
    FirstTick();
    desktop.SetFurtherMonitors(c.now);
    EXPECT_EQ(MonitorWindows(), static_cast<int>(c.now.size()));
    EXPECT_EQ(Shown(c.now), c.at_once);
    NextTick();
    EXPECT_EQ(Shown(c.now), c.next);
    form_->Unload();
  }
}

TEST_F(MonitorFormsTest, StayWhenThePrimaryMonitorIsUnplugged) {
  Start();
  FirstTick();
  desktop.SetFurtherMonitors({});
  desktop.SetScreen(640, 480);
  EXPECT_EQ(MonitorWindows(), 0);
  NextTick();
  EXPECT_EQ(At(639, 479), 3U);
  EXPECT_TRUE(form_->IsLoaded());
}

TEST_F(MonitorFormsTest, WaitForAnothersEffect) {
  desktop.SetFurtherMonitors({kSecond, kThird});
  process.options.Set("Interval", "2");
  Start();
  FirstTick();
  process.options.Set("SwapAffect", "Sweep Down");
  desktop.queue.SetMicrosecondsPerPump(10'000);  // so that an effect takes longer than the interval
  bool is_nested = false;
  for (int pump = 1; pump < 4000; ++pump) {
    desktop.queue.AtPump(pump, [&] { is_nested |= std::ranges::count_if(desktop.paced_runs, &PacedRunLog::open) > 1; });
  }
  desktop.queue.Advance(60'000);
  EXPECT_FALSE(is_nested);
  std::vector<WindowHandle> order;
  for (const PacedRunLog& run : desktop.paced_runs) order.push_back(run.surface);
  ASSERT_GE(order.size(), 6U);
  order.resize(6);
  const std::vector<WindowHandle> once{form_->PicBase.Hwnd(), BoxAt(kSecond), BoxAt(kThird)};
  EXPECT_THAT(order, ElementsAre(once[0], once[1], once[2], once[0], once[1], once[2]));
}

// The main form's timer waits for that effect, and the form goes in between.
TEST_F(MonitorFormsTest, AKeyDuringTheirEffectEndsTheShow) {
  process.options.Set("Interval", "2");
  Start();
  FirstTick();
  process.options.Set("SwapAffect", "Sweep Down");
  desktop.queue.SetMicrosecondsPerPump(10'000);
  bool is_theirs = false;
  desktop.queue.AtPump(1500, [&] {
    is_theirs = desktop.paced_runs.back().surface == BoxAt(kSecond);
    desktop.PressKey(form_->Hwnd(), 'A');
  });
  try {
    desktop.queue.Advance(30'000);
  } catch (const ProcessEnded&) {
  }
  EXPECT_TRUE(is_theirs);
  EXPECT_FALSE(form_->IsLoaded());
  EXPECT_EQ(MonitorWindows(), 0);
}

TEST_F(MonitorFormsTest, UnpluggedInTheirOwnEffectLeaveTheShow) {
  Start();
  FirstTick();
  process.options.Set("SwapAffect", "Sweep Down");
  bool is_unplugged = false;
  desktop.queue.AtPump(1000, [&] {  // the first effect takes 902
    is_unplugged = desktop.paced_runs.back().surface == BoxAt(kSecond);
    desktop.SetFurtherMonitors({});
  });
  NextTick();
  desktop.queue.Advance(kTurn);
  ASSERT_TRUE(is_unplugged);
  EXPECT_EQ(MonitorWindows(), 0);
  EXPECT_TRUE(form_->IsLoaded());
  EXPECT_THAT(desktop.boxes.shown, IsEmpty());
  NextTick();
  EXPECT_EQ(Primary(), 5) << "4 went with its monitor";
}

// The rule sees a hidden main form alone, and the forms of other monitors go with it.
TEST_F(MonitorFormsTest, DoNotCountAsForms) {
  form_ = std::make_shared<MainForm>(process);
  form_->Load();
  EXPECT_EQ(MonitorWindows(), 1);
  FirstTick();
  EXPECT_FALSE(form_->IsLoaded());
  EXPECT_EQ(MonitorWindows(), 0);
  EXPECT_TRUE(process.show.stop_requested);
}

TEST_F(MonitorFormsTest, CloseWhenTheShowFailsToStart) {
  process.options.Set("TransSpeed", "99999999999");
  EXPECT_THROW(std::make_shared<MainForm>(process)->Show(), Failure);
  EXPECT_EQ(MonitorWindows(), 0);
}

// As a screen saver daemon starts it on each of its other monitors.
TEST_F(MonitorFormsTest, AShowBesideThePrimarysIsSilentAndGoesOnWithItsList) {
  desktop.SetFurtherMonitors({});
  process.beside_primary = true;
  SetOptions({{"ResetPicList", "1"}, {"LastPicture", "6"}});
  Sounds(2);
  Start();
  FirstTick();
  EXPECT_EQ(Primary(), 7);
  EXPECT_THAT(desktop.sound.played, IsEmpty());
  EXPECT_EQ(process.options.Get("LastSound", "none"), "none");
}

// A store that can't be written keeps no position, but the show has to move on.
TEST_F(MonitorFormsTest, TakeTurnsWithoutAWritableStore) {
  Start();
  desktop.registry.failures.FailCall(RegistryCall::kBegin, 1, kErrorWriteFault);
  desktop.registry.failures.FailCall(RegistryCall::kBegin, 2, kErrorWriteFault);
  FirstTick();
  EXPECT_THAT(Shown({kSecond}), ElementsAre(1, 2));
  EXPECT_EQ(Position(), "none");
}

}  // namespace
}  // namespace quorvale
