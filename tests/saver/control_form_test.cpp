#include "saver/control_form.h"

#include "run/main_procedure.h"
#include "support/show_fixture.h"

namespace quorvale {
namespace {

constexpr PixelRect kPreviewArea{40, 60, 152, 112};

// A host window of another program, and the preview in it.
class ControlFormTest : public ShowTest {
 protected:
  void SetUp() override {
    ShowTest::SetUp();
    Pictures({"picture 400 300 ff0000", "picture 400 300 0000ff"});
    host = desktop.windows.CreateForeign("Display Properties");
    desktop.windows.Find(host)->bounds = kPreviewArea;
  }

  void Preview() {
    Main(process, "/p " + std::to_string(host));
    ASSERT_EQ(process.app.forms.Count(), 1);
    box = process.app.forms[0].Find<PictureBox>("PicBase").Hwnd();
  }
  ControlForm& Form() { return dynamic_cast<ControlForm&>(process.app.forms[0]); }
  bool IsOver() const { return process.app.forms.Count() == 0; }

  WindowHandle host = 0;
  WindowHandle box = 0;
};

TEST_F(ControlFormTest, RunsTheShowInsideTheHost) {
  Preview();
  EXPECT_EQ(desktop.windows.Find(box)->parent, host);
  EXPECT_FALSE(Form().Visible());
  EXPECT_EQ(Form().Caption(), "Screen Preview Pallete");
  EXPECT_EQ(Form().PicBase.Width(), 2280);
  EXPECT_EQ(Form().PicBase.Height(), 1680);
  desktop.queue.Advance(500);
  const Surface& pixels = Form().PicBase.Pixels();
  EXPECT_EQ(pixels.Bounds(), (PixelRect{0, 0, 152, 112}));
  EXPECT_EQ(RgbAt(pixels, 76, 56), 0xFF0000U);  // half the screen's size, in the middle
  EXPECT_EQ(RgbAt(pixels, 37, 56), 0U);
  EXPECT_EQ(Position(), "1");
  desktop.queue.Advance(5000);
  EXPECT_EQ(RgbAt(pixels, 76, 56), 0x0000FFU);
}

TEST_F(ControlFormTest, InputOverThePreviewChangesNothing) {
  Preview();
  desktop.PressKey(box, 32);
  desktop.PressMouse(box, 76, 56);
  for (int i = 0; i < 30; ++i) desktop.MoveMouse(box, i, 50);
  EXPECT_FALSE(IsOver());
  EXPECT_FALSE(process.show.stop_requested);
}

TEST_F(ControlFormTest, ACloseMessageReleasesTheBoxAndTheNextTickEnds) {
  Preview();
  desktop.queue.Advance(500);
  desktop.SendMessage(box, kWmExitMenuLoop);
  EXPECT_EQ(desktop.windows.Find(box)->parent, host);
  desktop.SendMessage(box, kWmClose);
  EXPECT_EQ(desktop.windows.Find(box)->parent, Form().Hwnd());
  EXPECT_FALSE(IsOver());
  desktop.queue.Advance(5000);
  EXPECT_TRUE(IsOver());
  EXPECT_EQ(Position(), "1");
}

TEST_F(ControlFormTest, EndsAtTheTickAfterTheHostIsGone) {
  Preview();
  desktop.queue.Advance(500);
  desktop.windows.Destroy(host);
  desktop.queue.Advance(5000);
  EXPECT_TRUE(IsOver());
  EXPECT_TRUE(desktop.boxes.shown.empty());
}

TEST_F(ControlFormTest, AnEffectRunsToItsEndWhateverBecomesOfTheHost) {
  for (const bool destroyed : {true, false}) {
    SCOPED_TRACE(destroyed ? "destroyed" : "closed");
    host = desktop.windows.CreateForeign("Host");
    desktop.windows.Find(host)->bounds = kPreviewArea;
    process.options.Set("SwapAffect", "Vertical Sandwich");
    Preview();
    desktop.queue.Advance(500);
    if (destroyed) {
      desktop.queue.AtPump(10, [&] { desktop.windows.Destroy(host); });
    } else {
      desktop.queue.AtPump(10, [&] { desktop.SendMessage(box, kWmClose); });
    }
    process.show.transition_armed = true;
    desktop.queue.Advance(5000);
    EXPECT_EQ(desktop.paced_runs.back().pumps, 115 * 201);  // 1140 twips, ten a step
    EXPECT_FALSE(IsOver());
    desktop.queue.Advance(5000);
    EXPECT_TRUE(IsOver());
    EXPECT_EQ(desktop.host.ended, 0);
  }
}

TEST_F(ControlFormTest, AHandleThatIsNoWindowEndsAtTheFirstTick) {
  for (const char* text : {"/P", "/P:4711", "/P 4711", "/Pabc"}) {
    SCOPED_TRACE(text);
    Main(process, text);
    ASSERT_FALSE(IsOver());
    EXPECT_EQ(Form().PicBase.Width(), 0);
    desktop.queue.Advance(500);
    EXPECT_TRUE(IsOver());
    EXPECT_EQ(Position(), "none");
  }
}

TEST_F(ControlFormTest, TheHandleIsTheNumberBehindTheSwitch) {
  constexpr std::int32_t kUnread = 77;  // too large for a handle: a box reports it
  const std::pair<std::string, std::int32_t> cases[] = {
      {"/P 1234", 1234},
      {"/p1234", 1234},
      {"/P   12 x", 12},
      {"/P:1234", 0},
      {"/P", 0},
      {"/P -8", -8},
      {"/P &H10&", 16},
      {"/P 2147483648", std::numeric_limits<std::int32_t>::min()},
      {"/P 4294967295", -1},
      {"/P -2147483648", std::numeric_limits<std::int32_t>::min()},
      {"/P 4294967296", kUnread},
  };
  for (const auto& [text, handle] : cases) {
    process.system_hwnd = kUnread;
    if (handle == kUnread) desktop.boxes.Answer(MessageBoxAnswer::kAbort);
    Main(process, text);
    EXPECT_EQ(process.system_hwnd, handle) << text;
    desktop.queue.Advance(500);
  }
}

}  // namespace
}  // namespace quorvale
