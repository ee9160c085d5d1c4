#include "config/artwork.h"
#include "config/config_fixture.h"
#include "platform/headless/headless_graphics.h"
#include "run/main_procedure.h"

namespace quorvale {
namespace {

TEST_F(ConfigTest, PreviewPlaysTheEditedLists) {
  desktop.files.AddFile("C:\\red.jpg", PictureText(4, 4, {"FF0000"}));
  process.options.Set("Stretch", "1");
  process.options.Set("BackColor", "65280");
  Open();
  const TwipRect monitor = form->monitor.Place();
  EXPECT_EQ(monitor.left, (form->Width() - 189 * 15) / 2);
  EXPECT_EQ(form->PicBase.Left(), monitor.left + 270);
  EXPECT_EQ(form->PicBase.Top(), monitor.top + 270);
  const Surface& pixels = PixelsOf(*form);
  EXPECT_EQ(pixels.Bounds(), (PixelRect{0, 0, 153, 114}));
  EXPECT_EQ(form->Height(), 6120 + 3 * 372);
  EXPECT_EQ(form->Left() * 2 + form->Width(), 800 * 15);
  EXPECT_EQ(form->Top() * 2 + form->Height(), 600 * 15);
  const auto colour_after = [&](int milliseconds) {
    desktop.queue.Advance(milliseconds);
    return RgbAt(pixels, 76, 57);
  };
  EXPECT_EQ(colour_after(500), 0x00FF00U);
  desktop.dialogs.AnswerFile("C:\\red.jpg");
  Press(kAddFiles);
  EXPECT_EQ(colour_after(500), 0x00FF00U) << "a click on a list button costs one tick";
  EXPECT_EQ(colour_after(500), 0xFF0000U);
  EXPECT_EQ(process.options.Get("LastPicture", ""), "1");
  Select({0});
  Press(kRemove);
  EXPECT_EQ(colour_after(1000), 0x00FF00U);
}

TEST_F(ConfigTest, WindowMayCloseDuringAnEffect) {
  desktop.files.AddFile("C:\\Pics\\a", PictureText(4, 4, {"FF0000"}));
  process.options.Set("SwapAffect", "Spotlight");
  process.options.Set("Interval", "1");
  desktop.dialogs.WorkModal([this](WindowHandle) {
    form = std::dynamic_pointer_cast<ConfigForm>(process.app.forms[0].shared_from_this());
    desktop.queue.Advance(500);
    form->lists[0].AddItem("C:\\Pics\\a");
    Choose("mnuOptions");
    desktop.queue.Advance(500);
    desktop.queue.AtPump(3, [this] { desktop.RequestClose(form->Hwnd()); });
    desktop.queue.Advance(5000);
  });
  Main(process, "/C");
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_EQ(desktop.paced_runs.size(), 1U);
  EXPECT_TRUE(desktop.boxes.shown.empty());
}

TEST_F(ConfigTest, MenusAndDialogsPauseThePreview) {
  Open();
  for (const char* const menu : {"mnuFile", "mnuPlayList", "mnuHelp"}) {
    EXPECT_FALSE(Restarts([&] { Choose(menu); }));
    EXPECT_TRUE(IsPaused());
    desktop.SendMessage(form->Hwnd(), kWmExitMenuLoop);
    EXPECT_FALSE(IsPaused());
  }
  for (const char* const speed : {"20", "99999999999"}) {
    process.options.Set("TransSpeed", speed);
    for (const char* const item : {"mnuOptions", "mnuHelpAbout"}) {
      desktop.dialogs.WorkModal([this](WindowHandle) { EXPECT_TRUE(IsPaused()); });
      EXPECT_EQ(Restarts([&] { Choose(item); }), item == std::string("mnuOptions"));
      EXPECT_FALSE(IsPaused());
    }
  }
}

TEST(MonitorArtworkTest, PartsFitAtEveryScale) {
  for (const int scale : {1, 2}) {
    const auto at = static_cast<float>(scale);
    const Bitmap bitmap = MonitorBitmap(at);
    const Bitmap mask = MonitorMask(at);
    const Bitmap whole = MonitorOnBackground(at);
    ASSERT_EQ(bitmap.Width(), 189 * scale);
    ASSERT_EQ(bitmap.Height(), 174 * scale);
    bool fits = true;
    for (int y = 0; y < bitmap.Height(); ++y) {
      for (int x = 0; x < bitmap.Width(); ++x) {
        const Pixel colour = bitmap.At(x, y) & 0xFFFFFF;
        const bool outside = (mask.At(x, y) & 0xFFFFFF) == 0xFFFFFF;
        const bool screen = x >= 18 * scale && x < 171 * scale && y >= 18 * scale && y < 132 * scale;
        const bool rim = !screen && x >= 17 * scale && x < 172 * scale && y >= 17 * scale && y < 133 * scale;
        fits = fits && whole.At(x, y) == (outside ? 0 : 0xFF000000U | colour);
        fits = fits && !(outside && (colour != 0 || screen)) && !(screen && colour != 0) && !(rim && colour == 0);
      }
    }
    EXPECT_TRUE(fits);
  }
}

// The calling dialog comes back whatever its title is.
TEST_F(ConfigTest, MainDisablesTheCallingDialogWhileTheWindowIsOpen) {
  for (const char* const title : {"Display Properties", "Screen Saver Settings"}) {
    const WindowHandle caller = desktop.windows.CreateForeign(title);
    desktop.windows.SetForeground(caller);
    desktop.dialogs.WorkModal([&](WindowHandle window) {
      EXPECT_EQ(desktop.windows.Find(window)->title, "Screen Saver Properties");
      EXPECT_EQ(process.config_dialog_hwnd, caller);
      EXPECT_FALSE(desktop.windows.Find(caller)->enabled);
      form = std::dynamic_pointer_cast<ConfigForm>(process.app.forms[0].shared_from_this());
    });
    Main(process, "/c:77");
    ASSERT_NE(form, nullptr);
    EXPECT_FALSE(form->IsLoaded());
    EXPECT_TRUE(desktop.windows.Find(caller)->enabled);
    EXPECT_EQ(desktop.windows.GetForegroundWindow(), caller);
    EXPECT_TRUE(desktop.boxes.shown.empty());
    desktop.windows.Destroy(caller);
  }
}

}  // namespace
}  // namespace quorvale
