#include <gmock/gmock.h>

#include "platform/win32/system/command_line.h"
#include "platform/win32/system/help_page.h"
#include "platform/win32/system/win32_host.h"
#include "platform/win32/system/win32_password.h"
#include "platform/win32/system/win32_programs.h"
#include "platform/win32/system/win32_sound_player.h"
#include "platform/win32/windows_api.h"
#include "support/failure_of.h"
#include "win32/work_directory.h"

namespace quorvale {
namespace {

// One second of silence, 8 bits at 8000 Hz.
std::string MakeWave() {
  const std::string head("RIFF\x64\x1F\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x40\x1F\0\0\x40\x1F\0\0\1\0\x08\0data\x40\x1F\0\0",
                         44);
  return head + std::string(8000, '\x80');
}

TEST(Win32SoundPlayer, AnswersForTheFile) {
  const WorkDirectory directory;
  Win32SoundPlayer player;
  EXPECT_FALSE(player.PlaySound(directory.Path("none.wav"), kSndFilename | kSndNoDefault));
  EXPECT_FALSE(player.PlaySound(directory.Write("text.wav", "no wave"), kSndFilename | kSndNoDefault));
  const ULONGLONG start = GetTickCount64();
  EXPECT_TRUE(player.PlaySound(directory.Write("wave.wav", MakeWave()), kSndFilename | kSndNoDefault | kSndAsync));
  EXPECT_LT(GetTickCount64() - start, 900U) << "returns while it plays";
  // Its file stays open until it has played, or another one does.
  player.PlaySound(directory.Path("none.wav"), kSndFilename | kSndNoDefault);
}

TEST(Win32Host, KnowsWhereItRuns) {
  Win32Host host;
  const std::string directory = host.GetSystemDirectory(144);
  EXPECT_NE(GetFileAttributesA((directory + "\\kernel32.dll").c_str()), INVALID_FILE_ATTRIBUTES) << directory;
  EXPECT_EQ(host.GetSystemDirectory(static_cast<std::uint32_t>(directory.size()) + 1), directory);
  EXPECT_EQ(host.GetSystemDirectory(static_cast<std::uint32_t>(directory.size())), "");
  EXPECT_EQ(host.ProgramName(), "quorvale_win32_tests");
  EXPECT_EQ(host.PlatformId(), kPlatformLocksItself);
}

TEST(Win32Host, TellsTheTimeOfDay) {
  constexpr double kDay = 24.0 * 60 * 60;
  SYSTEMTIME now{};
  GetLocalTime(&now);
  const double wanted = (now.wHour * 60.0 + now.wMinute) * 60 + now.wSecond;
  const double since = Win32Host().SecondsSinceMidnight() - wanted;
  EXPECT_THAT(since, testing::AnyOf(testing::AllOf(testing::Ge(0), testing::Lt(5)), testing::Lt(5 - kDay)));
}

// The library of the test's own answers with what it was asked for: the owner's number.
TEST(Win32Password, AsksTheLibraryThatIsThereAndNoOther) {
  Win32Password password;
  EXPECT_EQ(password.VerifyScreenSavePwd(1), 0U) << "nobody to ask";
  const std::string folder = std::filesystem::path(ProgramPath()).parent_path().string() + "\\";
  ASSERT_NE(CopyFileA((folder + "echo_password.cpl").c_str(), (folder + "password.cpl").c_str(), FALSE), 0);
  EXPECT_EQ(password.VerifyScreenSavePwd(0), 0U);
  EXPECT_EQ(password.VerifyScreenSavePwd(7), 7U);
  DeleteFileA((folder + "password.cpl").c_str());
  EXPECT_EQ(password.VerifyScreenSavePwd(7), 0U);
  EXPECT_NO_THROW(password.PwdChangePassword("SCRSAVE", 0));
}

TEST(Win32Programs, StartsWhatIsThere) {
  Win32Programs programs;
  EXPECT_NO_THROW(programs.Start("cmd.exe /c exit", kWindowMinimisedFocus));
  for (const char* line : {"C:\\none\\none.exe /x", ""}) {
    EXPECT_EQ(FailureOf([&] { programs.Start(line, kWindowNormalFocus); }), FailureNumber::kNotFound) << line;
  }
  EXPECT_EQ(FailureOf([&] { programs.ShellExecute("open", "C:\\none\\none.html", 1); }), FailureNumber::kNotFound);
}

TEST(CommandLine, BeginsBehindTheProgram) {
  const struct {
    const char* line;
    const char* text;
  } cases[] = {
      {R"(C:\Windows\QUORVALE.SCR /s)", "/s"},
      {R"("C:\My files\Quorvale.scr" /p 1234)", "/p 1234"},
      {"C:\\B\xC3\xBC"
       "cher\\\xE7\x8C\xAB.scr\t /INSTALL C:\\a b\\",
       "/INSTALL C:\\a b\\"},
      {R"("C:\My files"\Quorvale.scr /c:1)", "/c:1"},
      {"Quorvale.scr", ""},
      {"Quorvale.scr  ", ""},
      {R"("C:\My files\Quorvale.scr)", ""},
      {"", ""},
  };
  for (const auto& test : cases) EXPECT_EQ(SkipProgram(test.line), test.text) << test.line;
}

TEST(HelpPage, IsFoundBesideTheHelpFile) {
  const WorkDirectory directory;
  const std::string file = directory.Path("QVSAVER.HLP");
  EXPECT_EQ(FailureOf([&] { FindHelpPage(file, kHelpContents, 0); }), FailureNumber::kNotFound);
  directory.MakeDirectory("Quorvale");
  const std::string contents = directory.Write("Quorvale\\index.html", "");
  const std::string topic = directory.Write("Quorvale\\topic-7.html", "");
  const std::string search = directory.Write("Quorvale\\search.html", "");
  EXPECT_EQ(FindHelpPage(file, kHelpContents, 0), contents);
  EXPECT_EQ(FindHelpPage(file, kHelpContext, 7), topic);
  EXPECT_EQ(FindHelpPage(file, kHelpContext, 8), contents);
  EXPECT_EQ(FindHelpPage(file, kHelpPartialKey, 1), search);
}

}  // namespace
}  // namespace quorvale
