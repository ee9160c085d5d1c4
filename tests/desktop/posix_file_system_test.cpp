#include "platform/desktop/system/posix_file_system.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/failure.h"
#include "desktop/temporary_directory.h"
#include "playlist/media_collections.h"
#include "support/failure_of.h"

namespace quorvale {
namespace {

using testing::ElementsAre;

class PosixFileSystemTest : public testing::Test {
 protected:
  PosixFileSystemTest() {
    std::filesystem::create_directory(directory_.Path("dir.jpg"));
    std::filesystem::create_directory(directory_.Path(".hidden"));
    std::filesystem::create_symlink("dir.jpg", directory_.Path("to-dir.jpg"));
    std::filesystem::create_symlink("loop.jpg", directory_.Path("loop.jpg"));
    std::filesystem::create_symlink("nowhere", directory_.Path("dangling.jpg"));
    mkfifo(directory_.Path("pipe.jpg").c_str(), S_IRWXU);
    directory_.Write(".dot.jpg", "");
    directory_.Write("file.jpg", "");
    std::filesystem::create_symlink("file.jpg", directory_.Path("to-file.jpg"));
  }

  std::vector<std::string> Enumerate(const std::string& below, const std::vector<std::string>& patterns) {
    std::vector<std::string> names;
    files_.EnumerateFiles(directory_.Path(below) + "/", patterns,
                          [&](const std::string& name) { names.push_back(name); });
    return names;
  }

  TemporaryDirectory directory_;
  PosixFileSystem files_{directory_.Path("settings"), directory_.Path("bin/quorvale.SCR")};
};

TEST_F(PosixFileSystemTest, GivesPlainFilesAndLinksToThemOnly) {
  EXPECT_THAT(Enumerate("", {"*.jpg"}), ElementsAre("file.jpg", "to-file.jpg"));
  EXPECT_THAT(Enumerate("", {"*"}), ElementsAre("file.jpg", "to-file.jpg"));
}

TEST_F(PosixFileSystemTest, GroupsByPatternAndSortsByUpperCase) {
  const struct {
    std::vector<std::string> names;
    std::vector<std::string> patterns;
    std::vector<std::string> expected;
  } cases[] = {
      {{"b.JPG", "a.bmp", "B.jpg", "A.jpg", "c.Bmp"},
       {"*.bmp", "*.jpg"},
       {"a.bmp", "c.Bmp", "A.jpg", "B.jpg", "b.JPG"}},
      // "_" comes behind the letters, because they compare in upper case, and a dot ahead of digits.
      {{"a_.x", "ab.x", "a1.x", "a.x", "a10.x", "a2.x"}, {"*.X"}, {"a.x", "a1.x", "a10.x", "a2.x", "ab.x", "a_.x"}},
      {{"DSC_0000010.x", "DSC_0000009.x", "DSC_0000011.x"}, {"*"}, {"DSC_0000009.x", "DSC_0000010.x", "DSC_0000011.x"}},
      {{"\xc3\xa9t\xc3\xa9.jpg", "\xc3\x89ta.jpg", "zeta.jpg", "\xc3\x89TZ.JPG"},
       {"\xc3\x89*.jpg", "z*"},
       {"\xc3\x89ta.jpg", "\xc3\x89TZ.JPG", "\xc3\xa9t\xc3\xa9.jpg", "zeta.jpg"}},
      // In the order of UTF-16 the supplementary characters come ahead of the last block.
      {{"\xef\xbc\xa1.x", "\xf0\x9f\x98\x80.x"}, {"?.x", "??.x"}, {"\xef\xbc\xa1.x", "\xf0\x9f\x98\x80.x"}},
      {{"\xef\xbc\xa1.x", "\xf0\x9f\x98\x80.x"}, {"*.x"}, {"\xf0\x9f\x98\x80.x", "\xef\xbc\xa1.x"}},
      {{"new\nline.jpg", "\xff\xfe.jpg", "a b.jpg"}, {"*.jpg"}, {"a b.jpg", "new\nline.jpg", "\xff\xfe.jpg"}},
      {{"abc.jpg", "abd.jpeg", "ab.jpg"}, {"ab?.j*g", "*b.*"}, {"abc.jpg", "abd.jpeg", "ab.jpg"}},
      {{"aXbXc", "aXbXcd", "ac"}, {"a*b*c", "*?*d"}, {"aXbXc", "aXbXcd"}},
      {{"both.x"}, {"*.x", "b*", "*y"}, {"both.x", "both.x"}},
      {{"a.x"}, {"", "*.bmp"}, {}},
  };
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    SCOPED_TRACE(i);
    const std::string below = "case" + std::to_string(i);
    std::filesystem::create_directory(directory_.Path(below));
    for (const std::string& name : cases[i].names) directory_.Write(std::string(below).append("/").append(name), "");
    EXPECT_EQ(Enumerate(below, cases[i].patterns), cases[i].expected);
  }
}

TEST_F(PosixFileSystemTest, FailsIfThePathIsNoDirectory) {
  for (const std::string& path : {std::string("missing"), std::string("file.jpg"), std::string("loop.jpg"),
                                  std::string("pipe.jpg"), std::string(300, 'x'), std::string("dir.jpg\0x", 9)}) {
    EXPECT_EQ(FailureOf([&] { Enumerate(path, {"*"}); }), FailureNumber::kNotFound) << path;
  }
}

TEST_F(PosixFileSystemTest, ATreeHasEachRealDirectoryOnce) {
  std::filesystem::create_directories(directory_.Path("dir.jpg/Deep/deeper"));
  std::filesystem::create_directory_symlink("../..", directory_.Path("dir.jpg/Deep/loop"));
  for (const char* name : {"dir.jpg/b.jpg", "dir.jpg/Deep/c.jpg", "dir.jpg/Deep/deeper/d.jpg", ".hidden/e.jpg"}) {
    directory_.Write(name, "");
  }
  const std::string root = directory_.Path() + "/";
  std::vector<std::string> names;
  const auto found = [&](const std::string& name) { names.push_back(name); };
  EXPECT_THAT(files_.EnumerateFolder(root, {"*.jpg"}, found), ElementsAre("dir.jpg", "to-dir.jpg"));
  EXPECT_THAT(names, ElementsAre("file.jpg", "to-file.jpg"));
  EXPECT_EQ(files_.IdOf(root + "dir.jpg/"), files_.IdOf(root + "to-dir.jpg/"));
  for (const std::string& path : {std::string("missing/"), std::string("file.jpg/"), std::string("dir.jpg\0x", 9)}) {
    EXPECT_EQ(FailureOf([&] { files_.IdOf(root + path); }), FailureNumber::kNotFound) << path;
  }

  Collection tree;
  AddTreeFiles(files_, tree, root, "*.jpg");
  EXPECT_THAT(tree.TakeItems(), ElementsAre(root + "file.jpg", root + "to-file.jpg", root + "dir.jpg/b.jpg",
                                            root + "dir.jpg/Deep/c.jpg", root + "dir.jpg/Deep/deeper/d.jpg"));
}

TEST_F(PosixFileSystemTest, FilesHaveTheDateOfTheirLastChange) {
  for (const auto& [name, seconds] : {std::pair{"early", 1}, {"late", 2'000'000'000}, {"before", -1}}) {
    directory_.Write(name, "");
    const timespec times[] = {{.tv_sec = 0, .tv_nsec = UTIME_OMIT}, {.tv_sec = seconds, .tv_nsec = 700}};
    utimensat(AT_FDCWD, directory_.Path(name).c_str(), times, 0);
    EXPECT_THAT(files_.DatesOf({directory_.Path(name)}), ElementsAre(seconds * std::int64_t{10'000'000} + 7));
  }
  const auto dates =
      files_.DatesOf({directory_.Path("to-file.jpg"), directory_.Path("file.jpg"), directory_.Path("missing")});
  EXPECT_THAT(dates, ElementsAre(dates[1], testing::Ne(std::nullopt), std::nullopt));
}

TEST_F(PosixFileSystemTest, FindsWhatTheMaskLetsItFind) {
  constexpr int all = kAttributeHidden | kAttributeSystem | kAttributeDirectory | kAttributeArchive;
  const struct {
    std::string path;
    std::string as_file;
    std::string as_directory;
    std::string with_all;
  } cases[] = {
      {"file.jpg", "file.jpg", "file.jpg", "file.jpg"},
      {"to-file.jpg", "to-file.jpg", "to-file.jpg", "to-file.jpg"},
      {"dir.jpg", "", "dir.jpg", "dir.jpg"},
      {"dir.jpg//", "", "dir.jpg", "dir.jpg"},
      {"to-dir.jpg", "", "to-dir.jpg", "to-dir.jpg"},
      {".dot.jpg", "", "", ".dot.jpg"},
      {".hidden", "", "", ".hidden"},
      {".hidden/", "", ".hidden", ".hidden"},
      {"dir.jpg/..", "", "..", ".."},
      {"FILE.jpg", "", "", ""},
      {"file.jpg/", "", "", ""},
      {"*.jpg", "", "", ""},
      {"loop.jpg", "", "", ""},
      {"dangling.jpg", "", "", ""},
      {"pipe.jpg", "", "", ""},
      {std::string(300, 'x'), "", "", ""},
      {std::string("file.jpg\0", 9), "", "", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.path);
    const std::string path = directory_.Path() + "/" + c.path;
    EXPECT_EQ(files_.FindFile(path, kAttributeNormal), c.as_file);
    EXPECT_EQ(files_.FindFile(path, kAttributeDirectory), c.as_directory);
    EXPECT_EQ(files_.FindFile(path, all), c.with_all);
  }
  EXPECT_EQ(files_.FindFile("", all), "");
  EXPECT_EQ(files_.FindFile("/", kAttributeDirectory), "/");
  EXPECT_EQ(files_.FindFile("/proc", kAttributeDirectory), "proc");
}

TEST_F(PosixFileSystemTest, AnExistingPathIsItsOwnShortForm) {
  const std::string file = directory_.Path("file.jpg");
  EXPECT_EQ(files_.GetShortPathName(file, 250), file);
  EXPECT_EQ(files_.GetShortPathName(file, static_cast<std::uint32_t>(file.size()) + 1), file);
  EXPECT_EQ(files_.GetShortPathName(file, static_cast<std::uint32_t>(file.size())), "");
  EXPECT_EQ(files_.GetShortPathName(directory_.Path("missing"), 250), "");
  EXPECT_EQ(files_.GetShortPathName("", 250), "");

  const std::string saver = directory_.Path("bin/Quorvale.scr");
  EXPECT_EQ(files_.GetShortPathName(saver, 250), saver);
  EXPECT_EQ(files_.GetShortPathName(directory_.Path("Bin/quorvale.SCR"), 250), "");
  EXPECT_EQ(files_.GetShortPathName(directory_.Path("bin/quorvale.SC"), 250), "");
}

TEST_F(PosixFileSystemTest, AnIniFileWithoutDirectoryLiesAmongTheSettings) {
  EXPECT_TRUE(files_.WritePrivateProfileString("boot", "SCRNSAVE.EXE", "/q.SCR", "SYSTEM.INI"));
  EXPECT_EQ(directory_.Read("settings/SYSTEM.INI"), "[boot]\nSCRNSAVE.EXE=/q.SCR\n");
  EXPECT_TRUE(files_.WritePrivateProfileString("boot", "a", "1", directory_.Path("file.jpg")));
  EXPECT_EQ(directory_.Read("file.jpg"), "[boot]\na=1\n");
  EXPECT_FALSE(files_.WritePrivateProfileString("boot", "a", "1", directory_.Path("missing/x.ini")));
  EXPECT_FALSE(PosixFileSystem("", "").WritePrivateProfileString("boot", "a", "1", "SYSTEM.INI"));
}

}  // namespace
}  // namespace quorvale
