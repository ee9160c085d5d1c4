#include "run/main_procedure.h"

#include <algorithm>

#include "support/show_fixture.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;

class MainTest : public ShowTest {
 protected:
  bool ShowIsUp() { return process.app.forms.Count() == 1 && process.app.forms[0].Name() == "MainForm"; }
};

TEST_F(MainTest, TheFirstTwoCharactersChooseTheMode) {
  const std::tuple<const char*, RunMode, bool, bool> cases[] = {
      {"", RunMode::kConfiguration, false, false},
      {"/C:1234", RunMode::kConfiguration, false, false},
      {"/C /INSTALL C:\\x\\", RunMode::kConfiguration, false, false},
      {"/a /INSTALL C:\\x\\", RunMode::kPassword, false, false},
      {"/s", RunMode::kShow, true, false},
      {"/S/INSTALL C:\\", RunMode::kShow, true, false},
      {"/INSTALL C:\\x\\", RunMode::kNone, false, true},
      {" /INSTALL C:\\x\\", RunMode::kNone, false, true},
      {"run /INSTALL C:\\x\\", RunMode::kNone, false, true},
      {"/install C:\\x\\", RunMode::kNone, false, false},
      {"/X", RunMode::kNone, false, false},
      {"x", RunMode::kNone, false, false}};
  for (const auto& [text, mode, show, set_up] : cases) {
    SCOPED_TRACE(text);
    HeadlessDesktop other;
    Process fresh(other, other.Services());
    Main(fresh, text);
    EXPECT_EQ(fresh.mode, mode);
    EXPECT_EQ(fresh.app.forms.Count(), show ? 1 : 0);
    EXPECT_EQ(fresh.options.Get("InstallPath", "none"), set_up ? "C:\\x\\" : "none");
    EXPECT_EQ(fresh.system_directory, "C:\\WINDOWS\\SYSTEM");
    EXPECT_EQ(fresh.screen_twips_x, 15);
    EXPECT_TRUE(other.boxes.shown.empty());
  }
}

TEST_F(MainTest, ASecondShowEndsSilently) {
  const WindowHandle first = desktop.windows.CreateForeign("Screen Saver Main Form");
  desktop.registry.calls.clear();
  Main(process, "/S");
  EXPECT_EQ(process.app.forms.Count(), 0);
  EXPECT_TRUE(desktop.registry.calls.empty());
  EXPECT_EQ(desktop.windows.cursor_count, 0);
  desktop.windows.Destroy(first);
  Main(process, "/S");
  EXPECT_TRUE(ShowIsUp());
}

TEST_F(MainTest, AFailedConfigurationStillPumpsAndThenActivatesTheCaller) {
  const WindowHandle caller = desktop.windows.CreateForeign("Display Properties");
  desktop.windows.SetForeground(caller);
  bool pumped = false;
  desktop.dialogs.WorkModal([&](WindowHandle /*window*/) {
    EXPECT_FALSE(desktop.windows.Find(caller)->enabled);
    desktop.queue.Post([&] { pumped = desktop.windows.Find(caller)->enabled; });
    throw Failure(FailureNumber::kInternal, "No window", "Test");
  });
  Main(process, "/C");
  EXPECT_TRUE(pumped);
  EXPECT_EQ(desktop.windows.GetForegroundWindow(), caller);
  EXPECT_TRUE(desktop.boxes.shown.empty());
}

TEST_F(MainTest, AFailedLoadIsReportedAndRetriedOnAFreshForm) {
  process.options.Set("TransSpeed", "99999999999");
  desktop.boxes.Answer(MessageBoxAnswer::kRetry);
  desktop.boxes.Answer([&](const MessageBox& box) {
    EXPECT_EQ(box.title, "Program Error");
    EXPECT_EQ(box.buttons, MessageBoxButtons::kAbortRetryIgnore);
    EXPECT_EQ(box.text,
              "The following error was encountered:\r3: OverflowNumbers\r"
              "Please report this error to the manufacturer.");
    EXPECT_EQ(process.app.forms.Count(), 0) << "the form that failed is gone";
    process.options.Set("TransSpeed", "20");
    return MessageBoxAnswer::kRetry;
  });
  Main(process, "/S");
  EXPECT_EQ(desktop.boxes.shown.size(), 2U);
  EXPECT_TRUE(ShowIsUp());
}

TEST_F(MainTest, TheSetUpSeedsListsAndMakesItTheSaver) {
  desktop.files.AddFile("C:\\WINDOWS\\SYSTEM\\Quorvale.SCR");
  desktop.files.SetShortName("C:\\WINDOWS\\SYSTEM\\Quorvale.SCR", "QUORVA~1.SCR");
  desktop.files.AddDirectory("C:\\Program Files\\Samples Of Ours");
  desktop.files.SetShortName("C:\\Program Files", "PROGRA~1");
  desktop.files.SetShortName("C:\\Program Files\\Samples Of Ours", "SAMPLE~1");
  process.settings.SaveSetting("PictureFiles", "File3", "a later entry");
  desktop.registry.single_writes = 0;
  Main(process, "x /INSTALL C:\\PROGRA~1\\SAMPLE~1\\  ");
  EXPECT_EQ(desktop.registry.single_writes, 0) << "the entries are one act";
  EXPECT_EQ(process.options.Get("InstallPath", ""), "C:\\PROGRA~1\\SAMPLE~1\\");
  const std::string directory = "C:\\Program Files\\Samples Of Ours\\";
  const auto stored = [&](const char* section, const char* key) { return process.settings.GetSetting(section, key); };
  EXPECT_EQ(stored("PictureFiles", "File0"), MakeListEntry("Sample1.jpg", directory));
  EXPECT_EQ(stored("PictureFiles", "File1"), MakeListEntry("Sample2.jpg", directory));
  EXPECT_EQ(stored("PictureFiles", "File2"), MakeListEntry("Sample3.jpg", directory));
  EXPECT_EQ(stored("PictureFiles", "File3"), "a later entry");
  EXPECT_EQ(stored("SoundFiles", "File0"), MakeListEntry("Camera.wav", directory));
  EXPECT_EQ(stored("SoundFiles", "File1"), MakeListEntry("SlideProjector.wav", directory));
  EXPECT_EQ(desktop.files.IniLine("boot", "SCRNSAVE.EXE", "SYSTEM.INI"), "C:\\WINDOWS\\SYSTEM\\QUORVA~1.SCR");
  EXPECT_THAT(desktop.calls, ElementsAre("OpenDisplaySettings", "SendKeys Qu"));
}

TEST_F(MainTest, TheSetUpGoesOnWithWhatItDoesNotFind) {
  Main(process, "/INSTALL");
  EXPECT_EQ(process.options.Get("InstallPath", "none"), "");
  EXPECT_EQ(process.settings.GetSetting("PictureFiles", "File0"), MakeListEntry("Sample1.jpg", ""));
  EXPECT_EQ(desktop.files.IniLine("boot", "SCRNSAVE.EXE", "SYSTEM.INI"), "");
  EXPECT_TRUE(desktop.boxes.shown.empty());
}

class FailingPrograms : public RecordedPrograms {
 public:
  explicit FailingPrograms(CallLog& log) : RecordedPrograms(log) {}
  void OpenDisplaySettings() override {
    RecordedPrograms::OpenDisplaySettings();
    opened();
    if (failures_left-- > 0) throw Failure(FailureNumber::kNotFound, "No such program", "Programs");
  }
  std::function<void()> opened = [] {};
  int failures_left = 0;
};

class FailingHost : public ScriptedHost {
 public:
  using ScriptedHost::ScriptedHost;
  std::string GetSystemDirectory(std::uint32_t size) override {
    ++asked;
    if (failures_left-- > 0) throw Failure(FailureNumber::kUnreadable, "Nowhere.", "Host");
    return ScriptedHost::GetSystemDirectory(size);
  }
  int failures_left = 0;
  int asked = 0;
};

class MainStepsTest : public HeadlessTest {
 protected:
  System Services() {
    const System real = desktop.Services();
    return {real.registry, real.files, real.windows, real.sound, programs, host, real.password};
  }

  FailingPrograms programs{desktop.calls};
  FailingHost host{desktop.queue, desktop.calls};
  Process process{desktop, Services()};
};

TEST_F(MainStepsTest, TheSetUpStoresBeforeItOpensTheSettingsAndIgnoresAFailedLine) {
  desktop.files.AddFile("C:\\WINDOWS\\SYSTEM\\Quorvale.SCR");
  const auto line = [&] { return desktop.files.IniLine("boot", "SCRNSAVE.EXE", "SYSTEM.INI").value_or(""); };
  std::string line_at_first = "none";
  desktop.registry.called = [&](RegistryCall call) {
    if (call == RegistryCall::kCommit && line_at_first == "none") line_at_first = line();
  };
  std::string stored;
  programs.opened = [&] {
    stored = process.options.Get("InstallPath", "") + line();
    desktop.files.failures.FailEvery(FileCall::kWriteIni, 1);
  };
  for (int run = 0; run < 2; ++run) {
    Main(process, "/INSTALL C:\\x\\");
    EXPECT_EQ(stored, "C:\\x\\C:\\WINDOWS\\SYSTEM\\Quorvale.SCR");
    EXPECT_EQ(desktop.calls.back(), "SendKeys Qu");
  }
  EXPECT_EQ(line_at_first, "");
  EXPECT_TRUE(desktop.boxes.shown.empty());
}

TEST_F(MainStepsTest, AFailedSaveOfTheSamplesIsReportedOnce) {
  for (const RegistryCall call : {RegistryCall::kBegin, RegistryCall::kSet, RegistryCall::kCommit}) {
    desktop.calls.clear();
    desktop.boxes.shown.clear();
    desktop.registry.failures.FailEvery(call, kErrorWriteFault);
    Main(process, "/INSTALL C:\\x\\");
    ASSERT_EQ(desktop.boxes.shown.size(), 1U);
    EXPECT_THAT(desktop.boxes.shown[0].text, ::testing::StartsWith("The sample pictures were not added:"));
    EXPECT_EQ(process.options.Get("InstallPath", "none"), "none");
    EXPECT_EQ(desktop.calls.back(), "SendKeys Qu") << "the set-up goes on";
    desktop.registry.failures.Forget();
  }
}

TEST_F(MainStepsTest, ThePathStartsOneCharacterAfterTheSwitch) {
  const std::pair<std::string, std::string> cases[] = {{"/INSTALL C:\\Program Files\\x\\ ", "C:\\Program Files\\x\\"},
                                                       {"/INSTALL=C:\\x\\", "C:\\x\\"},
                                                       {"/INSTALL\xC3\xA9/x/", "/x/"},
                                                       {"/INSTALL   /a /INSTALL b", "/a /INSTALL b"},
                                                       {"/INSTALL\t\tx", "\tx"},
                                                       {"/INSTALL  \"C:\\My x\\\" ", "C:\\My x\\"},
                                                       {"/INSTALL \"/x", "\"/x"},
                                                       {"/INSTALL \"", "\""},
                                                       {"/INSTALLx", ""},
                                                       {"/INSTALL", ""}};
  for (const auto& [text, path] : cases) {
    Main(process, text);
    EXPECT_EQ(process.options.Get("InstallPath", "none"), path) << text;
  }
}

TEST_F(MainStepsTest, OnlyTheFailedSetUpStepIsRetriedOrSkipped) {
  using Answer = MessageBoxAnswer;
  const std::tuple<Answer, int, int, int> cases[] = {
      {Answer::kAbort, 1, 0, 1}, {Answer::kNone, 1, 0, 1}, {Answer::kIgnore, 1, 1, 1}, {Answer::kRetry, 2, 1, 1}};
  for (const auto& [answer, opened, keys, stored] : cases) {
    desktop.calls.clear();
    desktop.registry.calls.clear();
    programs.failures_left = 1;
    desktop.boxes.Answer(answer);
    Main(process, "/INSTALL C:\\x\\");
    EXPECT_EQ(std::count(desktop.calls.begin(), desktop.calls.end(), "OpenDisplaySettings"), opened);
    EXPECT_EQ(std::count(desktop.calls.begin(), desktop.calls.end(), "SendKeys Qu"), keys);
    const auto& calls = desktop.registry.calls;
    EXPECT_EQ(std::count(calls.begin(), calls.end(), RegistryCall::kCommit), stored);
  }
}

TEST_F(MainStepsTest, AFailedStartUpStepGetsTheSameBox) {
  using Answer = MessageBoxAnswer;
  const std::tuple<std::vector<Answer>, int, RunMode, const char*, bool> cases[] = {
      {{Answer::kAbort}, 1, RunMode::kNone, "", false},
      {{Answer::kNone}, 1, RunMode::kNone, "", false},
      {{Answer::kCancel}, 1, RunMode::kNone, "", false},
      {{Answer::kIgnore}, 1, RunMode::kShow, "", true},
      {{Answer::kRetry, Answer::kRetry}, 3, RunMode::kShow, "C:\\WINDOWS\\SYSTEM", true},
      {{Answer::kRetry, Answer::kAbort}, 2, RunMode::kNone, "", false}};
  for (const auto& [answers, asked, mode, directory, show] : cases) {
    Process fresh(desktop, Services());
    desktop.boxes.shown.clear();
    host.asked = 0;
    host.failures_left = static_cast<int>(answers.size());
    for (const Answer answer : answers) desktop.boxes.Answer(answer);
    Main(fresh, "/S");
    ASSERT_EQ(desktop.boxes.shown.size(), answers.size());
    EXPECT_EQ(desktop.boxes.shown[0].text,
              "The following error was encountered:\r8: Nowhere.Host\r"
              "Please report this error to the manufacturer.");
    EXPECT_EQ(host.asked, asked);
    EXPECT_EQ(fresh.screen_twips_x, 15);
    EXPECT_EQ(fresh.mode, mode);
    EXPECT_EQ(fresh.system_directory, directory);
    EXPECT_EQ(fresh.app.forms.Count(), show ? 1 : 0);
  }
}

TEST_F(MainStepsTest, TheSystemDirectoryEndsAtANulOrAfter143Bytes) {
  const std::pair<std::string, std::string> cases[] = {{"/usr/bin", "/usr/bin"},
                                                       {std::string("C:\\W\0junk", 9), "C:\\W"},
                                                       {std::string(200, 'd'), std::string(143, 'd')}};
  for (const auto& [given, taken] : cases) {
    host.system_directory = given;
    Main(process, "x");
    EXPECT_EQ(process.system_directory, taken);
  }
}

}  // namespace
}  // namespace quorvale
