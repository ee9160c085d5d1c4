#include "platform/win32/system/win32_file_system.h"

#include <gmock/gmock.h>

#include "platform/win32/windows_api.h"
#include "playlist/media_collections.h"
#include "support/failure_of.h"
#include "win32/work_directory.h"

namespace quorvale {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kAny = kAttributeHidden | kAttributeSystem | kAttributeDirectory | kAttributeArchive;

class Win32FileSystemTest : public testing::Test {
 protected:
  Win32FileSystemTest() {
    for (const char* name : {"b.jpg", "A.JPG", "c.jpeg", "d.bmp", "long name with blanks.gif", "e.txt"}) {
      directory_.Write(name, name);
    }
    SetFileAttributesA(directory_.Write("hidden.jpg", "").c_str(), FILE_ATTRIBUTE_HIDDEN);
    SetFileAttributesA(directory_.Write("system.jpg", "").c_str(), FILE_ATTRIBUTE_SYSTEM);
    SetFileAttributesA(directory_.Write("fixed.jpg", "").c_str(), FILE_ATTRIBUTE_READONLY);
    directory_.MakeDirectory("directory.jpg");
  }
  void TearDown() override {
    for (const char* name : {"hidden.jpg", "system.jpg", "fixed.jpg"}) {
      SetFileAttributesA(directory_.Path(name).c_str(), FILE_ATTRIBUTE_NORMAL);
    }
  }

  std::vector<std::string> Enumerate(const std::string& directory, const std::vector<std::string>& patterns) {
    std::vector<std::string> names;
    files_.EnumerateFiles(directory, patterns, [&](const std::string& name) { names.push_back(name); });
    return names;
  }

  WorkDirectory directory_;
  Win32FileSystem files_;
};

TEST_F(Win32FileSystemTest, ListsPlainFilesByPatternInNameOrder) {
  EXPECT_THAT(Enumerate(directory_.Path(), {"*.bmp", "*.jpg"}), ElementsAre("d.bmp", "A.JPG", "b.jpg", "fixed.jpg"));
  EXPECT_THAT(Enumerate(directory_.Path(), {"*.jpeg", "*.wmf", "d.*"}), ElementsAre("c.jpeg", "d.bmp"));
  EXPECT_THAT(Enumerate(directory_.Path(), {"*.wav"}), IsEmpty());
}

TEST_F(Win32FileSystemTest, FoldersHaveNamesAndIdentities) {
  const std::string hidden = directory_.MakeDirectory("hidden");
  const std::string system = directory_.MakeDirectory("Empty");
  SetFileAttributesA(hidden.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  SetFileAttributesA(system.c_str(), FILE_ATTRIBUTE_SYSTEM);
  std::vector<std::string> names;
  const auto found = [&](const std::string& name) { names.push_back(name); };
  EXPECT_THAT(files_.EnumerateFolder(directory_.Path(), {"*.bmp"}, found), ElementsAre("directory.jpg", "Empty"));
  EXPECT_THAT(names, ElementsAre("d.bmp"));
  EXPECT_THAT(files_.EnumerateFolder(system + "\\", {"*"}, found), IsEmpty());
  SetFileAttributesA(hidden.c_str(), FILE_ATTRIBUTE_NORMAL);
  SetFileAttributesA(system.c_str(), FILE_ATTRIBUTE_NORMAL);

  EXPECT_NE(files_.IdOf("C:\\").number, 0U);
  EXPECT_NE(files_.IdOf(directory_.Path()), files_.IdOf(hidden + "\\"));
  EXPECT_EQ(files_.IdOf(directory_.Path()), files_.IdOf(hidden + "\\..\\"));
  EXPECT_EQ(files_.IdOf(directory_.Path("DIRECTORY.JPG\\")), files_.IdOf(directory_.Path("directory.jpg\\")));
  for (const std::string& path : {directory_.Path("none\\"), directory_.Path() + '\0' + "\\"}) {
    EXPECT_EQ(FailureOf([&] { files_.IdOf(path); }), FailureNumber::kNotFound) << path;
  }
}

// Links to folders, removed with the object. Wine makes none, but shows those of the system below it.
class FolderLinks {
 public:
  explicit FolderLinks(const WorkDirectory& directory) : directory_(directory) {}
  ~FolderLinks() {
    for (const std::string& name : names_) {
      if (is_below_) {
        RunBelow("rm", name, false);
      } else {
        RemoveDirectoryA(directory_.Path(name).c_str());
      }
    }
  }
  FolderLinks(const FolderLinks&) = delete;
  FolderLinks& operator=(const FolderLinks&) = delete;

  // False where no link can be made.
  bool Make(const std::string& name, const std::string& target) {
    constexpr DWORD kFlags = SYMBOLIC_LINK_FLAG_DIRECTORY | SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE;
    CreateSymbolicLinkA(directory_.Path(name).c_str(), target.c_str(), kFlags);
    is_below_ = is_below_ || !IsThere(name);
    if (is_below_) RunBelow("ln", "-s " + target + " " + name, true);
    names_.push_back(name);
    return IsThere(name);
  }

 private:
  bool IsThere(const std::string& name) const {
    return GetFileAttributesA(directory_.Path(name).c_str()) != INVALID_FILE_ATTRIBUTES;
  }

  // Runs a program of the system below Wine that makes or removes what its last argument names. Wine does not report
  // its end.
  void RunBelow(const std::string& program, const std::string& arguments, bool makes) const {
    std::string command = program + " " + arguments;
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (CreateProcessA(("Z:\\bin\\" + program).c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                       directory_.Path().c_str(), &start, &process) == 0) {
      return;
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    const std::string name = arguments.substr(arguments.rfind(' ') + 1);
    for (int i = 0; i < 200 && IsThere(name) != makes; ++i) Sleep(10);
  }

  const WorkDirectory& directory_;
  std::vector<std::string> names_;
  // Whether the links are those of the system below.
  bool is_below_ = false;
};

TEST_F(Win32FileSystemTest, ATreeHasEachRealFolderOnce) {
  directory_.MakeDirectory("inner");
  directory_.Write("inner\\f.jpg", "");
  FolderLinks links(directory_);
  if (!links.Make("again", "inner") || !links.Make("loop", ".")) GTEST_SKIP() << "no links here";
  Collection found;
  AddTreeFiles(files_, found, directory_.Path(), "*.bmp;*.jpg");
  std::vector<std::string> names;
  for (const std::string& path : found.TakeItems()) names.push_back(path.substr(directory_.Path().size()));
  EXPECT_THAT(names, ElementsAre("d.bmp", "A.JPG", "b.jpg", "fixed.jpg", "again\\f.jpg"));
}

TEST_F(Win32FileSystemTest, FilesHaveTheDateOfTheirLastChange) {
  const std::string path = directory_.Write("dated.jpg", "");
  const HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  const FILETIME time = {.dwLowDateTime = 50, .dwHighDateTime = 0x01D00000};
  EXPECT_NE(SetFileTime(file, nullptr, nullptr, &time), 0);
  CloseHandle(file);
  const std::vector<std::string> few = {path, directory_.Path("none"), directory_.Path("DATED.jpg"), path + '\0'};
  std::vector<std::string> many(20, path);
  many.insert(many.end(), few.begin(), few.end());
  const std::optional<std::int64_t> date = 0x01D0000000000032;
  // A few files are asked one by one, many by a search.
  for (const auto& paths : {few, many}) {
    auto dates = files_.DatesOf(paths);
    EXPECT_EQ(dates.size(), paths.size());
    dates.erase(dates.begin(), dates.end() - 4);
    EXPECT_THAT(dates, ElementsAre(date, std::nullopt, date, std::nullopt)) << paths.size();
  }
}

TEST_F(Win32FileSystemTest, AMissingDirectoryFails) {
  for (const std::string& path : {directory_.Path("none\\"), directory_.Path("e.txt\\"), std::string("Z:\\none\\"),
                                  directory_.Path() + '\0' + "\\"}) {
    EXPECT_EQ(FailureOf([&] { Enumerate(path, {"*.jpg"}); }), FailureNumber::kNotFound) << path;
  }
}

TEST_F(Win32FileSystemTest, FindsNamesAsTheyAreOnDisk) {
  const struct {
    std::string path;
    int attributes;
    std::string name;
  } cases[] = {
      {directory_.Path("a.jpg"), kAttributeNormal, "A.JPG"},
      {directory_.Path("LONG name with blanks.GIF"), kAny, "long name with blanks.gif"},
      {directory_.Path("fixed.jpg"), kAttributeNormal, "fixed.jpg"},
      {directory_.Path("hidden.jpg"), kAttributeNormal, ""},
      {directory_.Path("hidden.jpg"), kAttributeHidden, "hidden.jpg"},
      {directory_.Path("system.jpg"), kAttributeHidden, ""},
      {directory_.Path("system.jpg"), kAny, "system.jpg"},
      {directory_.Path("Directory.jpg"), kAttributeNormal, ""},
      {directory_.Path("Directory.jpg"), kAttributeDirectory, "directory.jpg"},
      {directory_.Path("directory.jpg\\"), kAttributeDirectory, "directory.jpg"},
      {directory_.Path("directory.jpg\\"), kAttributeNormal, ""},
      {directory_.Path("e.txt\\"), kAttributeDirectory, ""},
      {"C:\\", kAttributeDirectory, "C:\\"},
      {"Z:\\none", kAny, ""},
      {directory_.Path("none\\none"), kAny, ""},
      {directory_.Path("a<b"), kAny, ""},
      {directory_.Path("e.txt") + '\0' + "x", kAny, ""},
      {"", kAny, ""},
  };
  for (const auto& [path, attributes, name] : cases) EXPECT_EQ(files_.FindFile(path, attributes), name) << path;
}

TEST_F(Win32FileSystemTest, ShortPaths) {
  const std::string path = directory_.Path("b.jpg");
  const std::string short_path = files_.GetShortPathName(path, 250);
  EXPECT_FALSE(short_path.empty());
  EXPECT_EQ(files_.FindFile(short_path, kAny), "b.jpg");
  EXPECT_EQ(files_.GetShortPathName(path, static_cast<std::uint32_t>(short_path.size())), "");
  EXPECT_EQ(files_.GetShortPathName(directory_.Path("none.jpg"), 250), "");
}

TEST_F(Win32FileSystemTest, WritesIniLines) {
  const std::string own = directory_.Path("own.ini");
  for (const std::string& file : {own, std::string("SYSTEM.INI")}) {
    for (const char* value : {"C:\\one.scr", "C:\\two.scr"}) {
      EXPECT_TRUE(files_.WritePrivateProfileString("boot", "SCRNSAVE.EXE", value, file));
      char read[64] = {};
      GetPrivateProfileStringA("BOOT", "scrnsave.exe", "none", read, sizeof read, file.c_str());
      EXPECT_STREQ(read, value) << file;
    }
  }
  WritePrivateProfileStringA("boot", "SCRNSAVE.EXE", nullptr, "SYSTEM.INI");
  EXPECT_FALSE(files_.WritePrivateProfileString("boot", "key", "value", directory_.Path("none\\own.ini")));
}

TEST_F(Win32FileSystemTest, ReadsWhatItWrote) {
  const std::string path = directory_.Path("list.qvl");
  for (const std::string& content : {std::string("one\r\n"), std::string(200'000, 'x'), std::string()}) {
    files_.WriteFile(path, content);
    EXPECT_EQ(files_.ReadFile(path, std::string::npos), content);
  }
  EXPECT_THAT(Enumerate(directory_.Path(), {"*.qvl", "*.new"}), ElementsAre("list.qvl")) << "no draft stays";
}

// A directory has the name of the temporary file, so it can't be made.
TEST_F(Win32FileSystemTest, WritesWhereNoNewFileCanBeMade) {
  const std::string path = directory_.Write("list.qvl", "a longer text");
  directory_.MakeDirectory(".quorvale-" + std::to_string(GetCurrentProcessId()) + ".new");
  files_.WriteFile(path, "one");
  EXPECT_EQ(files_.ReadFile(path, std::string::npos), "one");
  EXPECT_EQ(FailureOf([&] { files_.WriteFile(directory_.Path("new.qvl"), "x"); }), FailureNumber::kUnwritable);
}

TEST_F(Win32FileSystemTest, WritesThroughLinks) {
  const std::string path = directory_.Write("list.qvl", "old");
  const std::string link = directory_.Path("link.qvl");
  const bool is_made =
      CreateSymbolicLinkA(link.c_str(), path.c_str(), SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE) != 0;
  if (!is_made || GetFileAttributesA(link.c_str()) == INVALID_FILE_ATTRIBUTES) GTEST_SKIP() << "no links here";
  files_.WriteFile(link, "new");
  EXPECT_EQ(files_.ReadFile(path, std::string::npos), "new");
}

TEST_F(Win32FileSystemTest, ReportsWhyAFileFails) {
  using enum FailureNumber;
  const std::pair<const char*, FailureNumber> unreadable[] = {
      {"none", kNotFound}, {"none\\none", kNotFound}, {"directory.jpg", kUnreadable}};
  for (const auto& [name, number] : unreadable) {
    EXPECT_EQ(FailureOf([&, name = name] { files_.ReadFile(directory_.Path(name), std::string::npos); }), number)
        << name;
  }
  for (const char* name : {"none\\list.qvl", "directory.jpg", "fixed.jpg"}) {
    EXPECT_EQ(FailureOf([&] { files_.WriteFile(directory_.Path(name), "x"); }), kUnwritable) << name;
  }
  EXPECT_THAT(Enumerate(directory_.Path(), {"*.new"}), IsEmpty());
}

TEST_F(Win32FileSystemTest, ReadsOlderCodePages) {
  const std::string text = files_.FromOlderCodePage("caf\xE9");
  EXPECT_EQ(text, GetACP() == CP_UTF8 ? "caf\xC3\xA9" : "caf\xE9");
}

// Beyond what any older code page has, where the manifest's code page is understood.
TEST_F(Win32FileSystemTest, TakesNamesOfAllLanguages) {
  if (GetACP() != CP_UTF8) GTEST_SKIP() << "this system does not make UTF-8 the code page";
  const std::string name = "\xD0\xBB\xD0\xB5\xD1\x81 \xE5\xB1\xB1 \xF0\x9F\x8C\x84.jpg";
  const std::string folder = directory_.MakeDirectory("\xE5\xB1\xB1") + "\\";
  files_.WriteFile(folder + name, "x");
  EXPECT_THAT(Enumerate(folder, {"*.jpg"}), ElementsAre(name));
  EXPECT_EQ(files_.FindFile(folder + name, kAttributeNormal), name);
  EXPECT_EQ(files_.ReadFile(folder + name, std::string::npos), "x");
}

}  // namespace
}  // namespace quorvale
