#include "platform/desktop/system/desktop_programs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "base/failure.h"
#include "desktop/temporary_directory.h"
#include "platform/desktop/system/desktop_host.h"
#include "platform/desktop/system/start_program.h"
#include "support/failure_of.h"
#include "system/programs.h"

namespace quorvale {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

TEST(SplitCommandLine, DividesAtBlanksOutsideQuotes) {
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"", {}},
      {"  \t ", {}},
      {"a  b\tc ", {"a", "b", "c"}},
      {R"("/opt/my tool" --x="1 2" "")", {"/opt/my tool", "--x=1 2", ""}},
      {R"(a\ $HOME 'b c' *;|)", {R"(a\)", "$HOME", "'b", "c'", "*;|"}},
      {R"("open ended)", {"open ended"}},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(SplitCommandLine(text), expected) << text;
}

TEST(DesktopPrograms, StartsAProgramFromThePathAndDoesNotWait) {
  const TemporaryDirectory directory;
  // The pipe is opened by both sides or by none, so that reading from it waits for the program.
  ASSERT_EQ(mkfifo(directory.Path("pipe").c_str(), S_IRWXU), 0);
  DesktopPrograms programs;
  programs.Start(R"(sh -c "echo $0 $1 > ')" + directory.Path("pipe") + R"('" "first one" second)", kWindowNormalFocus);
  EXPECT_EQ(directory.Read("pipe"), "first one second\n");
}

TEST(DesktopPrograms, AMissingProgramFails) {
  const TemporaryDirectory directory;
  directory.Write("data", "no program");
  DesktopPrograms programs;
  for (const std::string& line : {std::string(), std::string("quorvale-no-such-program /x"), directory.Path("data"),
                                  directory.Path("data/below")}) {
    EXPECT_EQ(FailureOf([&] { programs.Start(line, kWindowNormalFocus); }), FailureNumber::kNotFound) << line;
  }
}

TEST(DesktopPrograms, FindsTheDesktopsInformationToolInThePath) {
  const TemporaryDirectory directory;
  const std::string path = std::getenv("PATH");
  setenv("PATH", directory.Path("").c_str(), 1);
  DesktopPrograms programs;
  EXPECT_EQ(programs.SystemInformationTool(), "");
  directory.Write("gnome-control-center", "");
  EXPECT_EQ(programs.SystemInformationTool(), "") << "no program";
  fs::permissions(directory.Path("gnome-control-center"), fs::perms::owner_all);
  EXPECT_EQ(programs.SystemInformationTool(), "gnome-control-center info-overview");
  setenv("PATH", path.c_str(), 1);
}

TEST(DesktopHost, TheSystemDirectoryIsTheProgramsOwn) {
  DesktopHost host([] {});
  const fs::path program = fs::read_symlink("/proc/self/exe");
  EXPECT_EQ(fs::path(host.GetSystemDirectory(4096)) / host.ProgramName(), program.parent_path() / program.stem());
  EXPECT_EQ(host.GetSystemDirectory(4), host.GetSystemDirectory(4096).substr(0, 3));
  EXPECT_EQ(host.GetSystemDirectory(0), "");
  EXPECT_NE(host.ClockSeed(), host.ClockSeed());
  const double seconds = host.SecondsSinceMidnight();
  EXPECT_TRUE(seconds >= 0 && seconds < 86'401) << seconds;
}

TEST(DesktopHost, ExitsEvenIfTheReleaseThrows) {
  const TemporaryDirectory directory;
  const pid_t child = fork();
  if (child == 0) {
    DesktopHost host([&] {
      directory.Write("released", "");
      throw Failure(FailureNumber::kInternal, "the display is gone", "test");
    });
    host.EndProcess();
  }
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(fs::exists(directory.Path("released")));
}

TEST(HelpPage, IsTheOneOfTheCommand) {
  const TemporaryDirectory directory;
  const std::string file = directory.Path("QVSAVER.HLP");
  fs::create_directory(directory.Path("help"));
  for (const char* const page : {"help/index.html", "help/search.html", "help/topic-7.html"}) directory.Write(page, "");
  const struct {
    std::uint32_t command;
    std::uintptr_t data;
    const char* page;
  } cases[] = {{kHelpContents, 0, "index.html"},
               {kHelpPartialKey, 0, "search.html"},
               {kHelpContext, 7, "topic-7.html"},
               {kHelpContext, 8, "index.html"}};
  for (const auto& c : cases) EXPECT_EQ(FindHelpPage(file, c.command, c.data), directory.Path("help/"s + c.page));
}

}  // namespace
}  // namespace quorvale
