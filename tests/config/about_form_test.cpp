#include "config/about_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/application_info.h"
#include "config/artwork.h"
#include "process/process.h"
#include "support/headless_fixture.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr char kInfo[] = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
constexpr char kLocation[] = "SOFTWARE\\Microsoft\\Shared Tools Location";

class AboutFormTest : public HeadlessTest {
 protected:
  Process process{desktop, desktop.Services()};
  std::shared_ptr<AboutForm> form = std::make_shared<AboutForm>(process);

  void SetUp() override { form->Show(); }
};

TEST_F(AboutFormTest, ShowsProductVersionAndCopyright) {
  const std::string version =
      std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." + std::to_string(kVersionRevision);
  EXPECT_EQ(form->Caption(), "About Quorvale Customizable Screen Saver");
  EXPECT_EQ(form->title.Caption(), "Quorvale Customizable Screen Saver   Version " + version);
  EXPECT_EQ(form->legal_notice.Caption(), "Copyright (C) Halvern Inc. and contributors");
  EXPECT_TRUE(form->ok.is_default && form->ok.is_cancel);
  form->ok.UserClick();
  EXPECT_FALSE(form->IsLoaded());
}

TEST_F(AboutFormTest, SystemInfoStartsTheFirstToolFound) {
  struct Case {
    const char* what;
    std::string path, location, own;
    bool file = false, starts = true;
    std::string started;
  };
  const std::vector<Case> cases = {
      {"neither key", "", "", "", true, true, ""},
      {"the first key", "D:\\I.EXE", "C:\\T", "own", true, true, "D:\\I.EXE"},
      {"a path that can't be started", "D:\\I.EXE", "C:\\T", "", true, false, ""},
      {"the second key", "", "C:\\T", "own", true, true, "C:\\T\\MSINFO32.EXE"},
      {"no program in its directory", "", "C:\\T", "own", false, true, ""},
      {"the desktop's own", "", "", "own", false, true, "own"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    desktop.registry = MemoryRegistry();
    if (!c.path.empty()) desktop.registry.SetText(kHkeyLocalMachine, kInfo, "PATH", c.path);
    if (!c.location.empty()) desktop.registry.SetText(kHkeyLocalMachine, kLocation, "MSINFO", c.location);
    desktop.files.Remove("C:\\T");
    if (c.file) desktop.files.AddFile("C:\\T\\MSINFO32.EXE");
    desktop.programs.information_tool = c.own;
    desktop.programs.found = c.starts;
    desktop.calls.clear();
    desktop.boxes.shown.clear();

    form->system_info.UserClick();

    EXPECT_TRUE(form->IsLoaded());
    EXPECT_EQ(desktop.registry.OpenKeys(), 0);
    ASSERT_THAT(desktop.boxes.shown, SizeIs(c.started.empty() ? 1 : 0));
    if (!c.started.empty()) {
      EXPECT_THAT(desktop.calls, ElementsAre("Start " + c.started + " 1"));
      continue;
    }
    EXPECT_EQ(desktop.boxes.shown[0].text, "System Information Is Unavailable At This Time");
  }
}

TEST_F(AboutFormTest, ReadsTextsAndNumbersOfTheRegistry) {
  const std::tuple<std::uint32_t, std::string, bool, std::string> cases[] = {
      {kRegSz, std::string("C:\\T\0", 5), true, "C:\\T"},
      {kRegSz, "", true, ""},
      {kRegSz, std::string(1023, 'x'), true, std::string(1023, 'x')},
      {kRegSz, std::string(1025, 'x'), false, ""},
      {kRegDword, std::string("\x01\x02\0\0", 4), true, "513"},
      {kRegDword, "\xFF\xFF\xFF\xFF", true, "-1"},
      {3, "abc", true, "before"},
  };
  for (const auto& [type, bytes, read, expected] : cases) {
    desktop.registry.SetValue(kHkeyLocalMachine, "Key", "Value", type, bytes);
    std::string text = "before";
    EXPECT_EQ(form->GetKeyValue(kHkeyLocalMachine, "Key", "Value", text), read) << bytes.size();
    EXPECT_EQ(text, expected) << bytes.size();
  }
  std::string text = "before";
  EXPECT_FALSE(form->GetKeyValue(kHkeyLocalMachine, "No such key", "Value", text));
  EXPECT_EQ(text, "");
}

TEST_F(AboutFormTest, IconOpensTheWebPage) {
  for (const bool found : {true, false}) {
    desktop.programs.found = found;
    form->web_link.UserClick();
  }
  EXPECT_THAT(desktop.calls, ::testing::Each("ShellExecute Open " + std::string(kWebAddress) + " 1"));
  EXPECT_THAT(desktop.calls, SizeIs(2));
  EXPECT_THAT(desktop.boxes.shown, IsEmpty());
}

TEST(ArtworkTest, IconFitsAtEveryScale) {
  for (const float scale : {1.0F, 1.5F, 2.0F}) {
    const Bitmap icon = IconArtwork(32)(scale);
    EXPECT_EQ(icon.Width(), static_cast<int>(32 * scale));
    // The old picture's sky on the left of the sweep, the night on its right.
    EXPECT_EQ(icon.At(icon.Width() * 7 / 16, icon.Height() * 7 / 32), 0xFF8FB0D4U);
    EXPECT_EQ(icon.At(icon.Width() * 11 / 16, icon.Height() * 7 / 32), 0xFF0E1A38U);
  }
}

}  // namespace
}  // namespace quorvale
