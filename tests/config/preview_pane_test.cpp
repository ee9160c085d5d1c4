#include <set>

#include "config/config_fixture.h"
#include "config/monitor_artwork.h"
#include "platform/headless/text_pictures.h"
#include "run/main_procedure.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;

TEST_F(ConfigTest, TheShowRunsOnTheMonitorFromTheListsAsTheyStand) {
  desktop.files.AddFile("C:\\red.jpg", PictureText(4, 4, {"FF0000"}));
  process.SetOption("Stretch", "1");
  process.SetOption("BackColor", "65280");
  Open();
  const TwipRect monitor = form->Image1.Place();
  EXPECT_EQ(monitor.left, (form->Width() - 189 * 15) / 2);
  EXPECT_EQ(form->PicBase.Left(), monitor.left + 270);
  EXPECT_EQ(form->PicBase.Top(), monitor.top + 270);
  EXPECT_EQ(form->PicBase.Pixels().Width(), 153);
  EXPECT_EQ(form->PicBase.Pixels().Height(), 114);
  EXPECT_EQ(form->Height(), 6120 + 3 * 372);
  EXPECT_EQ(form->Left() * 2 + form->Width(), 800 * 15);
  EXPECT_EQ(form->Top() * 2 + form->Height(), 600 * 15);
  desktop.queue.Advance(500);
  EXPECT_EQ(RgbAt(PixelsOf(*form), 76, 57), 0x00FF00U);
  desktop.dialogs.AnswerFile("C:\\red.jpg");
  Press(kAddFiles);
  desktop.queue.Advance(500);
  EXPECT_EQ(RgbAt(PixelsOf(*form), 76, 57), 0x00FF00U) << "a click on a list button costs one tick";
  desktop.queue.Advance(500);
  EXPECT_EQ(RgbAt(PixelsOf(*form), 76, 57), 0xFF0000U);
  Select({0});
  Press(kRemove);
  desktop.queue.Advance(1000);
  EXPECT_EQ(RgbAt(PixelsOf(*form), 76, 57), 0x00FF00U);
  EXPECT_EQ(process.Option("LastPicture", ""), "1");
}

TEST_F(ConfigTest, AnOpenMenuHoldsThePreviewForThatTimeAndNoLonger) {
  Open();
  for (const char* const menu : {"mnuFile", "mnuPlayList", "mnuHelp"}) {
    EXPECT_FALSE(Restarts([&] { Choose(menu); }));
    EXPECT_TRUE(IsPaused());
    desktop.SendMessage(form->Hwnd(), kWmExitMenuLoop);
    EXPECT_FALSE(IsPaused());
  }
}

TEST_F(ConfigTest, DialogsHoldThePreviewAndTheOptionsRestartIt) {
  OpenWith({"a"});
  form->lstList[0].AddItem("b");
  Select({0});
  for (const bool fails : {false, true}) {
    if (fails) process.SetOption("TransSpeed", "99999999999");
    for (const char* const item : {"mnuOptions", "mnuHelpAbout"}) {
      desktop.dialogs.WorkModal([this](WindowHandle) { EXPECT_TRUE(IsPaused()); });
      EXPECT_EQ(Restarts([&] { Choose(item); }), item == std::string("mnuOptions"));
      EXPECT_FALSE(IsPaused());
      EXPECT_TRUE(form->cmdImages[kMoveDown].Enabled());
    }
  }
}

TEST(MonitorArtworkTest, TheParts) {
  const std::set<Pixel> usual = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0x808080,
                                 0xC0C0C0, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
  for (const int scale : {1, 2}) {
    const auto at = static_cast<float>(scale);
    const Bitmap bitmap = MonitorBitmap(at);
    const Bitmap mask = MonitorMask(at);
    const Bitmap whole = MonitorOnBackground(at);
    ASSERT_EQ(bitmap.Width(), 189 * scale);
    ASSERT_EQ(bitmap.Height(), 174 * scale);
    bool fits = mask.Width() == bitmap.Width() && mask.Height() == bitmap.Height();
    for (int y = 0; y < bitmap.Height(); ++y) {
      for (int x = 0; x < bitmap.Width(); ++x) {
        const Pixel colour = bitmap.At(x, y) & 0xFFFFFF;
        const bool outside = (mask.At(x, y) & 0xFFFFFF) == 0xFFFFFF;
        const bool screen = x >= 18 * scale && x < 171 * scale && y >= 18 * scale && y < 132 * scale;
        fits = fits && usual.contains(colour) && whole.At(x, y) == (outside ? 0 : 0xFF000000U | colour);
        fits = fits && (!outside || colour == 0) && (!screen || (colour == 0 && !outside));
      }
    }
    EXPECT_TRUE(fits);
    for (const auto& [x, y] : {std::pair{17, 60}, std::pair{171, 60}, std::pair{60, 17}, std::pair{60, 132}}) {
      EXPECT_NE(bitmap.At(x * scale, y * scale) & 0xFFFFFF, 0U) << "the black screen ends there";
    }
  }
}

// The dialog that started configuration is held from before the window shows until it has gone.
TEST_F(ConfigTest, MainHoldsTheCallingDialogWhileTheWindowIsOpen) {
  for (const bool called : {true, false}) {
    const WindowHandle caller = called ? desktop.windows.CreateForeign("Display Properties") : 0;
    desktop.windows.SetForeground(caller);
    desktop.calls.clear();
    bool ran = false;
    desktop.dialogs.WorkModal([&](WindowHandle window) {
      ran = true;
      EXPECT_EQ(desktop.windows.Find(window)->title, "Screen Saver Properties");
      EXPECT_EQ(process.ConfigDialogHwnd, caller);
      EXPECT_FALSE(called && desktop.windows.Find(caller)->enabled);
    });
    Main(process, called ? "/c:77" : "");
    EXPECT_TRUE(ran);
    EXPECT_EQ(process.RunMode, "/C");
    EXPECT_EQ(process.app.Forms.Count(), 0);
    if (called) {
      EXPECT_TRUE(desktop.windows.Find(caller)->enabled);
      EXPECT_EQ(desktop.windows.GetForegroundWindow(), caller);
      desktop.windows.Destroy(caller);
    }
    EXPECT_TRUE(desktop.boxes.shown.empty());
  }
}

}  // namespace
}  // namespace quorvale
