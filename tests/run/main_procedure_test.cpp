#include "run/main_procedure.h"

#include "process/end_saver.h"
#include "support/show_fixture.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;

class MainTest : public ShowTest {
 protected:
  bool ShowIsUp() { return process.app.Forms.Count() == 1 && process.app.Forms[0].Name() == "MainForm"; }
};

TEST_F(MainTest, TheFirstTwoCharactersChooseTheMode) {
  struct Case {
    const char* text;
    const char* mode;
    bool show;
    bool set_up;
  };
  for (const Case& c : {Case{"", "/C", false, false},
                        {"/C:1234", "/C", false, false},
                        {"/s", "/S", true, false},
                        {"/S/INSTALL C:\\", "/S", true, false},
                        {"/INSTALL C:\\x\\", "/I", false, true},
                        {" /INSTALL C:\\x\\", " /", false, true},
                        {"run /INSTALL C:\\x\\", "RU", false, true},
                        {"/install C:\\x\\", "/I", false, false},
                        {"/X", "/X", false, false},
                        {"x", "X", false, false}}) {
    SCOPED_TRACE(c.text);
    HeadlessDesktop other;
    Process fresh(other, other.Services());
    Main(fresh, c.text);
    EXPECT_EQ(fresh.RunMode, c.mode);
    EXPECT_EQ(fresh.app.Forms.Count(), c.show ? 1 : 0);
    EXPECT_EQ(fresh.Option("InstallPath", "none"), c.set_up ? "C:\\x\\" : "none");
    EXPECT_EQ(fresh.SystemDirectory, "C:\\WINDOWS\\SYSTEM");
    EXPECT_EQ(fresh.ScreenTwipsX, 15);
    EXPECT_TRUE(other.boxes.shown.empty());
  }
}

TEST_F(MainTest, ASecondShowEndsSilently) {
  const WindowHandle first = desktop.windows.CreateForeign("Screen Saver Main Form");
  Main(process, "/S");
  EXPECT_EQ(process.app.Forms.Count(), 0);
  EXPECT_EQ(desktop.windows.cursor_count, 0);
  desktop.windows.Destroy(first);
  Main(process, "/S");
  EXPECT_TRUE(ShowIsUp());
}

TEST_F(MainTest, AFailedLoadIsReportedAndRetriedOnAFreshForm) {
  process.SetOption("TransSpeed", "99999999999");
  desktop.boxes.Answer(MessageBoxAnswer::kRetry);
  desktop.boxes.Answer([&](const MessageBox& box) {
    EXPECT_EQ(box.title, "Program Error");
    EXPECT_EQ(box.buttons, MessageBoxButtons::kAbortRetryIgnore);
    EXPECT_EQ(box.text,
              "The following error was encountered:\r3: OverflowNumbers\r"
              "Please report this error to the manufacturer.");
    EXPECT_EQ(process.app.Forms.Count(), 0) << "the form that failed is gone";
    process.SetOption("TransSpeed", "20");
    return MessageBoxAnswer::kRetry;
  });
  Main(process, "/S");
  EXPECT_EQ(desktop.boxes.shown.size(), 2U);
  EXPECT_TRUE(ShowIsUp());
}

TEST_F(MainTest, AbortIgnoreAndNoAnswerLeaveNoShow) {
  process.SetOption("TransSpeed", "99999999999");
  for (const MessageBoxAnswer answer : {MessageBoxAnswer::kAbort, MessageBoxAnswer::kIgnore, MessageBoxAnswer::kNone}) {
    desktop.boxes.Answer(answer);
    Main(process, "/S");
    EXPECT_EQ(process.app.Forms.Count(), 0);
  }
  EXPECT_EQ(desktop.boxes.shown.size(), 3U);
}

TEST_F(MainTest, TheSetUpSeedsListsAndMakesItTheSaver) {
  desktop.files.AddFile("C:\\WINDOWS\\SYSTEM\\Quorvale.SCR");
  desktop.files.SetShortName("C:\\WINDOWS\\SYSTEM\\Quorvale.SCR", "QUORVA~1.SCR");
  desktop.files.AddDirectory("C:\\Program Files\\Samples Of Ours");
  desktop.files.SetShortName("C:\\Program Files", "PROGRA~1");
  desktop.files.SetShortName("C:\\Program Files\\Samples Of Ours", "SAMPLE~1");
  process.Settings.SaveSetting("PictureFiles", "File3", "a later entry");
  Main(process, "x /INSTALL C:\\PROGRA~1\\SAMPLE~1\\  ");
  EXPECT_EQ(process.Option("InstallPath", ""), "C:\\PROGRA~1\\SAMPLE~1\\");
  const std::string directory = "C:\\Program Files\\Samples Of Ours\\";
  const auto stored = [&](const char* section, const char* key) { return process.Settings.GetSetting(section, key); };
  EXPECT_EQ(stored("PictureFiles", "File0"), MakeListEntry("Sample1.jpg", directory));
  EXPECT_EQ(stored("PictureFiles", "File2"), MakeListEntry("Sample3.jpg", directory));
  EXPECT_EQ(stored("PictureFiles", "File3"), "a later entry");
  EXPECT_EQ(stored("SoundFiles", "File0"), MakeListEntry("Camera.wav", directory));
  EXPECT_EQ(stored("SoundFiles", "File1"), MakeListEntry("SlideProjector.wav", directory));
  EXPECT_EQ(desktop.files.IniLine("boot", "SCRNSAVE.EXE", "SYSTEM.INI"), "C:\\WINDOWS\\SYSTEM\\QUORVA~1.SCR");
  EXPECT_THAT(desktop.calls, ElementsAre("OpenDisplaySettings", "SendKeys Qu"));
}

TEST_F(MainTest, TheSetUpGoesOnWithWhatItDoesNotFind) {
  Main(process, "/INSTALL");
  EXPECT_EQ(process.Option("InstallPath", "none"), "");
  EXPECT_EQ(process.Settings.GetSetting("PictureFiles", "File0"), MakeListEntry("Sample1.jpg", ""));
  EXPECT_EQ(desktop.files.IniLine("boot", "SCRNSAVE.EXE", "SYSTEM.INI"), "");
  EXPECT_TRUE(desktop.boxes.shown.empty());
}

TEST_F(MainTest, EndSaverShowsTheCursorAndGivesTheDialogBack) {
  process.ConfigDialogHwnd = desktop.windows.CreateForeign("Display Properties");
  desktop.windows.EnableWindow(process.ConfigDialogHwnd, false);
  ForceCursorOff(process);
  EXPECT_EQ(desktop.windows.cursor_count, -6);
  EXPECT_THROW(EndSaver(process), ProcessEnded);
  EXPECT_EQ(desktop.windows.cursor_count, 6);
  EXPECT_TRUE(desktop.windows.Find(process.ConfigDialogHwnd)->enabled);
  EXPECT_EQ(desktop.queue.PumpCount(), 1);
}

}  // namespace
}  // namespace quorvale
