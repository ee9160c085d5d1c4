#include <gmock/gmock.h>

#include "base/application_info.h"
#include "platform/win32/system/files.h"
#include "platform/win32/system/library_services.h"
#include "platform/win32/system/modules.h"
#include "platform/win32/system/system_text.h"
#include "platform/win32/system/win32_host.h"
#include "platform/win32/system/win32_programs.h"
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

std::string FolderOfProgram() { return std::filesystem::path(ProgramPath()).parent_path().string() + "\\"; }

// A directory that is the current one as long as the object lives.
class CurrentDirectory {
 public:
  CurrentDirectory() : before_(std::filesystem::current_path()) { std::filesystem::current_path(directory_.Path()); }
  ~CurrentDirectory() { std::filesystem::current_path(before_); }
  CurrentDirectory(const CurrentDirectory&) = delete;
  CurrentDirectory& operator=(const CurrentDirectory&) = delete;

 private:
  WorkDirectory directory_;
  std::filesystem::path before_;
};

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

TEST(Win32Host, KnowsDirectoriesAndNames) {
  Win32Host host;
  const std::string directory = host.GetSystemDirectory(144);
  const auto size = static_cast<std::uint32_t>(directory.size());
  EXPECT_TRUE(IsFile(directory + "\\kernel32.dll")) << directory;
  EXPECT_EQ(host.GetSystemDirectory(size + 1), directory);
  EXPECT_EQ(host.GetSystemDirectory(size), "");
  EXPECT_EQ(host.ProgramName(), "quorvale_win32_tests");
  EXPECT_EQ(host.PlatformId(), kPlatformLocksItself);
  char windows[MAX_PATH] = {};
  GetWindowsDirectoryA(windows, sizeof windows);
  EXPECT_EQ(HelpFilePath(kHelpFile), std::string(windows) + "\\HELP\\QVSAVER.HLP");
  EXPECT_EQ(HelpFilePath("C:\\a.hlp"), "C:\\a.hlp");
  EXPECT_EQ(Win32Programs().SystemInformationTool(), "\"" + directory + "\\msinfo32.exe\"");
}

TEST(Win32Host, SetsASystemParameter) {
  static_assert(kSpiScreenSaverRunning == SPI_SETSCREENSAVERRUNNING);
  for (const bool active : {false, true}) {
    Win32Host().SystemParametersInfo(SPI_SETSCREENSAVEACTIVE, active ? 1 : 0);
    BOOL is_active = FALSE;
    SystemParametersInfoA(SPI_GETSCREENSAVEACTIVE, 0, &is_active, 0);
    EXPECT_EQ(is_active != FALSE, active);
  }
}

TEST(Win32Host, KnowsTheTimeOfDay) {
  constexpr double kDay = 24.0 * 60 * 60;
  SYSTEMTIME now{};
  GetLocalTime(&now);
  const double wanted = (now.wHour * 60.0 + now.wMinute) * 60 + now.wSecond;
  const double since = Win32Host().SecondsSinceMidnight() - wanted;
  EXPECT_THAT(since, testing::AnyOf(testing::AllOf(testing::Ge(0), testing::Lt(5)), testing::Lt(5 - kDay)));
}

// The test's own library refuses once and then answers with the owner's number.
TEST(Win32Password, AsksOnlyTheLibraryBesideTheProgram) {
  Win32Password password;
  SetEnvironmentVariableA("QUORVALE_ASKED", "yes");
  const std::string library = FolderOfProgram() + "scripted_password\\password.cpl";
  const std::string beside = FolderOfProgram() + "password.cpl";
  {
    const CurrentDirectory elsewhere;
    ASSERT_NE(CopyFileA(library.c_str(), "password.cpl", FALSE), 0);
    EXPECT_EQ(password.VerifyScreenSavePwd(7), 0U) << "the current directory is not searched";
  }
  ASSERT_NE(CopyFileA(library.c_str(), beside.c_str(), FALSE), 0);
  EXPECT_EQ(password.VerifyScreenSavePwd(0), 0U);
  EXPECT_EQ(password.VerifyScreenSavePwd(7), 7U);
  EXPECT_EQ(LoadedLibrary("password.cpl").Find<BOOL WINAPI(HWND)>("VerifyScreenSavePwd"), nullptr) << "system only";
  DeleteFileA(beside.c_str());
  EXPECT_EQ(password.VerifyScreenSavePwd(7), 0U) << "no library";
  EXPECT_NO_THROW(password.PwdChangePassword("SCRSAVE", 0));
}

TEST(Win32Programs, StartsExistingPrograms) {
  Win32Programs programs;
  for (const char* line :
       {"cmd.exe /c exit", "cmd /c exit", "\"cmd.exe\" /c exit", R"(C:\windows\system32\cmd.exe /c exit)"}) {
    EXPECT_NO_THROW(programs.Start(line, kWindowMinimisedFocus)) << line;
  }
  for (const char* line : {"C:\\none\\none.exe /x", ""}) {
    EXPECT_EQ(FailureOf([&] { programs.Start(line, kWindowNormalFocus); }), FailureNumber::kNotFound) << line;
  }
  EXPECT_EQ(FailureOf([&] { programs.ShellExecute("open", "C:\\none\\none.html", 1); }), FailureNumber::kNotFound);
}

// Anybody may put files there.
TEST(Win32Programs, StartsNothingBesideTheProgramOrInTheCurrentDirectory) {
  const std::string beside = FolderOfProgram() + "planted.exe";
  const CurrentDirectory current;
  for (const std::string& path : {beside, std::string("planted.exe")}) {
    ASSERT_NE(CopyFileA("C:\\windows\\system32\\rundll32.exe", path.c_str(), FALSE), 0);
    for (const char* line : {"planted.exe /x", "\"planted.exe\" /x", "planted"}) {
      EXPECT_EQ(FailureOf([&] { Win32Programs().Start(line, kWindowMinimisedFocus); }), FailureNumber::kNotFound);
    }
    DeleteFileA(path.c_str());
  }
}

// The shell has error numbers of its own.
TEST(Win32Programs, ReportsThatNothingOpensADocument) {
  const WorkDirectory directory;
  const std::string document = directory.Write("page.nobodys", "");
  try {
    Win32Programs().ShellExecute("open", document, kWindowNormalFocus);
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Description(), document + ": " + DescribeError(ERROR_NO_ASSOCIATION));
  }
}

TEST(CommandLine, SkipsTheProgram) {
  const std::pair<const char*, const char*> cases[] = {
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
  for (const auto& [line, text] : cases) EXPECT_EQ(SkipProgram(line), text) << line;
}

TEST(HelpPage, LiesBesideTheHelpFile) {
  const WorkDirectory directory;
  const std::string file = directory.Path("QVSAVER.HLP");
  EXPECT_EQ(FailureOf([&] { Win32Programs().WinHelp(0, file, kHelpContents, 0); }), FailureNumber::kNotFound);
  directory.MakeDirectory("Quorvale");
  const std::string contents = directory.Write("Quorvale\\index.html", "");
  const std::string topic = directory.Write("Quorvale\\topic-7.html", "");
  EXPECT_EQ(FindHelpPage(file, kHelpContents, 0), contents);
  EXPECT_EQ(FindHelpPage(file, kHelpContext, 7), topic);
}

}  // namespace
}  // namespace quorvale
