#include "saver/main_form.h"

#include "support/show_fixture.h"

namespace quorvale {
namespace {

class MainFormTest : public ShowTest {
 protected:
  void SetUp() override {
    ShowTest::SetUp();
    Pictures({"picture 400 300 ff0000", "picture 400 300 0000ff"});
  }

  WindowHandle Box() { return form_->PicBase.Hwnd(); }
};

TEST_F(MainFormTest, CoversTheScreenAboveAllOthersWithoutACursor) {
  MainForm& form = Start();
  const HeadlessWindow& window = *desktop.windows.Find(form.Hwnd());
  EXPECT_EQ(window.title, "Screen Saver Main Form");
  EXPECT_TRUE(window.visible);
  EXPECT_TRUE(window.topmost);
  EXPECT_EQ(window.bounds, (PixelRect{0, 0, 800, 600}));
  EXPECT_EQ(form.PicBase.Pixels().Bounds(), (PixelRect{0, 0, 800, 600}));
  EXPECT_EQ(desktop.windows.cursor_count, -6);
  EXPECT_EQ(form.tmrSwitch.Interval(), 500);
  EXPECT_TRUE(form.tmrSwitch.Enabled());
}

// A long list takes seconds to read, and the desktop must not stay on view for that.
TEST_F(MainFormTest, CoversTheScreenBeforeItReadsTheLists) {
  struct WatchedRegistry : MemoryRegistry {
    std::int32_t RegOpenKeyEx(std::uint32_t hive, const std::string& path, std::uint32_t access,
                              RegistryKey& key) override {
      if (path.ends_with("\\PictureFiles")) found_covered = is_covered();
      return MemoryRegistry::RegOpenKeyEx(hive, path, access, key);
    }
    std::function<bool()> is_covered;
    bool found_covered = false;
  } registry;
  const System real = desktop.Services();
  Process watched(desktop, {registry, real.files, real.windows, real.sound, real.programs, real.host, real.password});
  const auto form = std::make_shared<MainForm>(watched);
  // In the show's colour, so that nothing is painted twice.
  watched.settings.SaveSetting("Options", "BackColor", "255");
  registry.is_covered = [&] {
    return desktop.windows.Find(form->Hwnd())->visible && form->PicBase.Pixels().At(0, 0) == ToPixel(Colour{255});
  };
  form->Show();
  EXPECT_TRUE(registry.found_covered);
}

TEST_F(MainFormTest, WhatEndsTheShowAndWhatDoesNot) {
  const std::vector<Ending> cases = {
      {"a key on the picture box", [&] { desktop.PressKey(Box(), 65); }, true},
      {"a key on the form", [&] { desktop.PressKey(form_->Hwnd(), 16); }, true},
      {"a press on the form", [&] { desktop.PressMouse(form_->Hwnd()); }, true},
      {"a close request", [&] { desktop.RequestClose(form_->Hwnd()); }, true},
      {"another program's window", [&] { desktop.Deactivate(form_->Hwnd()); }, true},
      {"a press on the background", [&] { desktop.PressMouse(Box(), 1, 1); }, false},
      {"a press on the picture", [&] { desktop.PressMouse(Box(), 400, 300); }, false},
      {"nine moves", [&] { Moves(Box(), 9); }, false},
      {"ten moves", [&] { Moves(Box(), 10); }, true},
      {"ten moves on the form, the box and the picture",
       [&] {
         for (int i = 0; i < 4; ++i) desktop.MoveMouse(form_->Hwnd());
         for (int i = 0; i < 3; ++i) desktop.MoveMouse(Box(), 1, 1);
         for (int i = 0; i < 3; ++i) desktop.MoveMouse(Box(), 400, 300);
       },
       true},
  };
  CheckEndings(cases, [&](bool ends) {
    EXPECT_EQ(process.app.forms.Count(), ends ? 0 : 1);
    EXPECT_EQ(process.show.stop_requested, ends);
    EXPECT_EQ(desktop.windows.cursor_count, ends ? 6 : -6);
  });
}

struct Movement {
  int moves;
  double pause;  // seconds, before these moves
};

TEST_F(MainFormTest, MovesAreCountedUntilOneComesTooLate) {
  struct Case {
    const char* what;
    std::vector<Movement> movements;
    bool ends;
    double start = 0;  // seconds past noon
  };
  const std::vector<Case> cases = {
      {"the late move clears the count", {{8, 0}, {1, 10.5}, {9, 0}}, false},
      {"and ten more are needed", {{8, 0}, {1, 10.5}, {10, 0}}, true},
      {"a late move that is the tenth ends it", {{9, 0}, {1, 3000}}, true},
      {"exactly ten seconds do not clear", {{8, 0}, {1, 10}, {1, 0}}, true},
      {"slow movement never ends it",
       {{1, 0}, {1, 6}, {1, 6}, {1, 6}, {1, 6}, {1, 6}, {1, 6}, {1, 6}, {1, 6}, {1, 6}},
       false},
      {"the clearing move opens no count", {{1, 0}, {1, 11}, {1, 11}, {1, 8}, {7, 0}}, false},
      {"a count begins at the nearest second, here earlier", {{8, 0}, {1, 9.7}, {9, 0}}, false, 0.4},
      {"and here later", {{8, 0}, {1, 10.3}, {1, 0}}, true, 0.6},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    process.show.stop_requested = false;
    process.show.mouse_move_count = 0;
    desktop.host.SetSecondsSinceMidnight(12 * 3600 + c.start);
    Start();
    for (const Movement& movement : c.movements) {
      desktop.queue.Skip(static_cast<int>(movement.pause * 1000));
      Moves(Box(), movement.moves);
    }
    EXPECT_EQ(form_->IsLoaded(), !c.ends);
    form_->Unload();
  }
}

// Starting the show on the unloaded form would fail, and a box would report that.
TEST_F(MainFormTest, AKeyWhileTheWindowAppearsEndsTheShow) {
  desktop.windows.shown = [this](WindowHandle window) { desktop.PressKey(window, 27); };
  EXPECT_FALSE(Start().IsLoaded());
}

TEST_F(MainFormTest, AKeyInMidEffectEndsTheProcessAtTheStep) {
  process.options.Set("SwapAffect", "Spotlight");
  Start();
  FirstTick();
  desktop.queue.AtPump(7, [&] { desktop.PressKey(Box(), 32); });
  EXPECT_THROW(NextTick(), ProcessEnded);
  EXPECT_FALSE(form_->IsLoaded());
  EXPECT_EQ(desktop.windows.cursor_count, 7) << "6 from the unloading, raised once more by the ending";
  EXPECT_EQ(desktop.paced_runs.back().pumps, 7);
  EXPECT_EQ(Position(), "1");
}

TEST_F(MainFormTest, AKeyDuringALongDecodeEndsTheProcess) {
  desktop.pictures.waits = 3;
  Start();
  desktop.queue.AtPump(2, [&] { desktop.PressKey(Box(), 32); });
  EXPECT_THROW(FirstTick(), ProcessEnded);
  EXPECT_FALSE(form_->IsLoaded());
  EXPECT_EQ(Position(), "none");
}

// The show stayed as large as the screen was at its start.
TEST_F(MainFormTest, CoversAnotherScreenAtOnceAndLaysTheNextPictureOutForIt) {
  SetOptions({{"Stretch", "1"}, {"SwapAffect", "Sweep Down"}});
  Start();
  FirstTick();
  desktop.queue.AtPump(5, [&] {
    desktop.SetScreen(600, 900);
    EXPECT_EQ(desktop.windows.Find(form_->Hwnd())->bounds, (PixelRect{0, 0, 600, 900}));
    EXPECT_EQ(form_->PicBase.Pixels().Bounds(), (PixelRect{0, 0, 600, 900}));
    EXPECT_EQ(At(599, 899), 0U);
  });
  NextTick();
  EXPECT_EQ(form_->PicPreview.Height(), 900 * kTwipsPerPixel);
  EXPECT_EQ(At(599, 899), 0x0000FFU);
}

TEST_F(MainFormTest, TheTimerDoesNothingOnceTheShowIsToEnd) {
  Start();
  process.show.stop_requested = true;
  desktop.queue.Advance(5000);
  EXPECT_EQ(Position(), "none");
}

TEST_F(MainFormTest, UnloadDuringAnEffectSkipsTheRemainingSteps) {
  process.options.Set("SwapAffect", "Sweep Down");
  Start();
  FirstTick();
  desktop.queue.AtPump(5, [&] {
    form_->Unload();
    process.show.stop_requested = false;
  });
  NextTick();
  EXPECT_FALSE(form_->IsLoaded());
  EXPECT_TRUE(desktop.boxes.shown.empty());
  EXPECT_LT(desktop.paced_runs.back().pumps, 8);
}

}  // namespace
}  // namespace quorvale
