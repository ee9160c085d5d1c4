#include "platform/desktop/system/ini_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "desktop/temporary_directory.h"

namespace quorvale {
namespace {

TEST(SetIniValue, ChangesOneLineAndKeepsTheRest) {
  const std::tuple<const char*, std::string, std::string> cases[] = {
      {"new file", "", "[boot]\nKey=new\n"},
      {"other section", "[386enh]\nKey=1\n", "[386enh]\nKey=1\n[boot]\nKey=new\n"},
      {"no line end at the end", "[x]\na=1", "[x]\na=1\n[boot]\nKey=new\n"},
      {"changed in place", "; c\n[BOOT] ; main\n a=1\n key = old ; x\nb=2\n\n[y]\nKey=3\n",
       "; c\n[BOOT] ; main\n a=1\n key =new\nb=2\n\n[y]\nKey=3\n"},
      {"added at the end of the section", "[boot]\na=1\n\n\n[y]\nKey=3\n", "[boot]\na=1\nKey=new\n\n\n[y]\nKey=3\n"},
      {"empty section", "[boot]\n", "[boot]\nKey=new\n"},
      {"comment is no line", "[boot]\n;Key=1\nKeys=2\n", "[boot]\n;Key=1\nKeys=2\nKey=new\n"},
      {"first of two sections", "[boot]\n[boot]\nKey=1\n", "[boot]\nKey=new\n[boot]\nKey=1\n"},
      {"carriage returns", "[boot]\r\nKey=1\r\n[y]\r\n", "[boot]\r\nKey=new\r\n[y]\r\n"},
      {"line before any section", "Key=1\n", "Key=1\n[boot]\nKey=new\n"},
  };
  for (const auto& [name, before, after] : cases) {
    SCOPED_TRACE(name);
    EXPECT_EQ(SetIniValue(before, "boot", "Key", "new"), after);
    EXPECT_EQ(SetIniValue(after, "boot", "Key", "new"), after);
  }
}

TEST(WriteIniValue, ReplacesTheFileBehindALink) {
  const TemporaryDirectory directory;
  directory.Write("real.ini", "[a]\n");
  chmod(directory.Path("real.ini").c_str(), 0640);
  std::filesystem::create_symlink("real.ini", directory.Path("link.ini"));
  EXPECT_TRUE(WriteIniValue(directory.Path("link.ini"), "a", "b", "c"));
  EXPECT_TRUE(std::filesystem::is_symlink(directory.Path("link.ini")));
  EXPECT_EQ(directory.Read("real.ini"), "[a]\nb=c\n");
  EXPECT_EQ(static_cast<int>(std::filesystem::status(directory.Path("real.ini")).permissions()), 0640);

  EXPECT_FALSE(WriteIniValue(directory.Path("link.ini"), "a", "b", "c\n[d]"));
  EXPECT_FALSE(WriteIniValue(directory.Path(), "a", "b", "c"));
  mkfifo(directory.Path("pipe").c_str(), S_IRWXU);
  EXPECT_FALSE(WriteIniValue(directory.Path("pipe"), "a", "b", "c"));
  EXPECT_EQ(directory.Read("real.ini"), "[a]\nb=c\n");
  const std::filesystem::directory_iterator left(directory.Path());
  EXPECT_EQ(std::distance(begin(left), end(left)), 3) << "no temporary file stays";
}

}  // namespace
}  // namespace quorvale
