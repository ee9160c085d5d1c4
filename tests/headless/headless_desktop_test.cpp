#include "platform/headless/headless_desktop.h"

#include <sstream>

#include "base/ending.h"
#include "base/failure.h"
#include "platform/headless/ppm.h"
#include "support/headless_fixture.h"
#include "toolkit/scripted_form.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(HeadlessTest, MessageBoxesAreAnsweredInOrderAndTheRestIsUnexpected) {
  desktop.boxes.Answer(MessageBoxAnswer::kRetry);
  desktop.boxes.Answer(
      [&](const MessageBox& box) { return box.text == "second" ? MessageBoxAnswer::kYes : MessageBoxAnswer::kNo; });
  EXPECT_EQ(desktop.ShowMessageBox({.text = "first"}), MessageBoxAnswer::kRetry);
  EXPECT_EQ(desktop.ShowMessageBox({.text = "second"}), MessageBoxAnswer::kYes);
  EXPECT_THAT(desktop.boxes.unexpected, IsEmpty());
  EXPECT_EQ(desktop.ShowMessageBox({.text = "third"}), MessageBoxAnswer::kNone);
  ASSERT_EQ(desktop.boxes.unexpected.size(), 1U);
  EXPECT_EQ(desktop.boxes.unexpected[0].text, "third");
  EXPECT_EQ(desktop.boxes.shown.size(), 3U);
}

TEST_F(HeadlessTest, CallsAreLoggedInOneOrder) {
  const System system = desktop.Services();
  const WindowHandle other = desktop.windows.CreateForeign("Other");
  const std::string handle = std::to_string(other);
  system.windows.EnableWindow(other, false);
  system.windows.SetWindowPos(other, kHwndTopmost, 1, 2, 3, 4, kSwpNoSizeNoMove);
  EXPECT_TRUE(system.sound.PlaySound("a.wav", kSndAsync));
  system.programs.Start("x /y", kWindowNormalFocus);
  system.windows.ActivateWindow("OTHER");
  system.programs.SendKeys("{END}");
  EXPECT_THROW(system.host.EndProcess(), ProcessEnded);
  EXPECT_THAT(desktop.calls,
              ElementsAre("EnableWindow " + handle + " false", "SetWindowPos " + handle + " -1 1 2 3 4 3",
                          "PlaySound a.wav 1", "Start x /y 1", "ActivateWindow OTHER", "SendKeys {END}", "EndProcess"));
  EXPECT_TRUE(desktop.windows.Find(other)->topmost);
  EXPECT_EQ(desktop.windows.Find(other)->bounds, PixelRect());
}

TEST_F(HeadlessTest, WindowsOfOtherProgramsComeAndGo) {
  WindowSystem& windows = desktop.windows;
  const WindowHandle other = desktop.windows.CreateForeign("Screen Saver");
  EXPECT_EQ(windows.FindWindow("screen saver"), other);
  windows.ActivateWindow("Screen Saver");
  EXPECT_EQ(windows.GetForegroundWindow(), other);
  desktop.windows.Destroy(other);
  EXPECT_FALSE(windows.IsWindow(other));
  EXPECT_EQ(windows.GetForegroundWindow(), 0U);
  EXPECT_EQ(windows.FindWindow("Screen Saver"), 0U);
  EXPECT_EQ(FailureOf([&] { windows.ActivateWindow("Screen Saver"); }), FailureNumber::kNotFound);
  windows.EnableWindow(other, true);
  EXPECT_EQ(windows.ShowCursor(false), -1);
  EXPECT_EQ(windows.ShowCursor(true), 0);
}

TEST_F(HeadlessTest, TimeOfDayGoesWithTheClockAndAroundMidnight) {
  desktop.queue.Advance(5000);
  desktop.host.SetSecondsSinceMidnight(86'399.5);
  EXPECT_EQ(desktop.host.SecondsSinceMidnight(), 86'399.5);
  desktop.queue.Advance(750);
  EXPECT_EQ(desktop.host.SecondsSinceMidnight(), 0.25);
}

TEST_F(HeadlessTest, DesktopsLiveSideBySide) {
  HeadlessDesktop other;
  Application app(desktop);
  Application other_app(other);
  int ticks[2] = {};
  const auto form = std::make_shared<ScriptedForm>(app);
  const auto other_form = std::make_shared<ScriptedForm>(other_app);
  form->OnLoad = [&] { form->Clock.SetEnabled(true); };
  form->Clock.Elapsed = [&] { ++ticks[0]; };
  other_form->OnLoad = [&] { other_form->Clock.SetEnabled(true); };
  other_form->Clock.Elapsed = [&] {
    ++ticks[1];
    desktop.queue.Advance(200);
  };
  form->Show();
  other_form->Show();
  other.queue.Advance(300);
  EXPECT_EQ(ticks[0], 6);
  EXPECT_EQ(ticks[1], 3);
  EXPECT_EQ(other.windows.All().size(), 2U);
  EXPECT_EQ(app.Forms.Count(), 1);
}

TEST_F(HeadlessTest, FilesThatAreNoPicturesFailToLoad) {
  desktop.files.AddFile("C:\\unreadable", PictureText(1, 1, {"ff0000"}));
  desktop.files.MakeUnreadable("C:\\unreadable");
  const struct {
    const char* path;
    const char* content;
    FailureNumber failure;
  } cases[] = {
      {"C:\\empty", "", FailureNumber::kBadPicture},
      {"C:\\no colour", "picture 1 1", FailureNumber::kBadPicture},
      {"C:\\bad colour", "picture 1 1 ff00", FailureNumber::kBadPicture},
      {"C:\\flat", "picture 1 0 ff0000", FailureNumber::kBadPicture},
      {"C:\\directory\\", nullptr, FailureNumber::kUnreadable},
      {"C:\\unreadable", nullptr, FailureNumber::kUnreadable},
      {"C:\\missing", nullptr, FailureNumber::kNotFound},
  };
  desktop.files.AddDirectory("C:\\directory");
  for (const auto& [path, content, failure] : cases) {
    if (content != nullptr) desktop.files.AddFile(path, content);
    EXPECT_EQ(FailureOf([&, name = path] { desktop.pictures.Load(name, {}); }), failure) << path;
    EXPECT_EQ(desktop.pictures.loads.back().path, path);
    EXPECT_FALSE(desktop.pictures.loads.back().loaded);
  }
}

// Stripes show where a picture was scaled and where it was cut off.
TEST_F(HeadlessTest, PicturesAreScaledToTheirBoxAndCutToTheirClip) {
  desktop.files.AddFile("C:\\p", PictureText(4, 2, {"ff0000", "00ff00"}));
  const auto picture = desktop.pictures.Load("C:\\p", {});
  Surface surface;
  surface.Resize(10, 1, 0);
  picture->Paint(surface.Pixels(), {-2, 0, 10, 1}, {1, 0, 8, 1});
  std::vector<Pixel> row(10);
  for (int x = 0; x < 10; ++x) row[static_cast<std::size_t>(x)] = RgbAt(surface, x, 0);
  EXPECT_THAT(row, ElementsAre(0, 0xFF0000, 0xFF0000, 0x00FF00, 0x00FF00, 0x00FF00, 0x00FF00, 0x00FF00, 0, 0));
}

TEST_F(HeadlessTest, SurfaceIsWrittenAsAPixmap) {
  Surface surface;
  surface.Resize(2, 1, ToPixel(0x0000FF));
  surface.FillRect({1, 0, 1, 1}, ToPixel(0x332211));
  std::ostringstream written;
  WritePpm(surface, written);
  EXPECT_EQ(written.str(), std::string("P6\n2 1\n255\n\xFF\0\0\x11\x22\x33", 17));
}

}  // namespace
}  // namespace quorvale
