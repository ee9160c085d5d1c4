#include "platform/headless/memory_file_system.h"

#include <gmock/gmock.h>

#include "base/failure.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kAll = kAttributeHidden | kAttributeSystem | kAttributeDirectory | kAttributeArchive;

class MemoryFileSystemTest : public ::testing::Test {
 protected:
  // The names found, followed by the number of the failure, if any.
  std::vector<std::string> Enumerate(const std::string& directory, const std::vector<std::string>& patterns) {
    std::vector<std::string> names;
    try {
      files.EnumerateFiles(directory, patterns, [&](const std::string& name) { names.push_back(name); });
    } catch (const Failure& failure) {
      names.push_back("failure " + std::to_string(static_cast<int>(failure.Number())));
    }
    return names;
  }

  MemoryFileSystem files;
};

TEST_F(MemoryFileSystemTest, ListsFilesByPatternAndThenByName) {
  for (const char* const name : {"b.JPG", "A.jpg", "_.jpg", "c.bmp", "d.txt", "x.jpg.bak"}) {
    files.AddFile(std::string(R"(C:\Pics\)") + name);
  }
  files.AddFile(R"(C:\Pics\hidden.jpg)", "", kAttributeHidden);
  files.AddFile(R"(C:\Pics\system.jpg)", "", kAttributeSystem);
  files.AddDirectory(R"(C:\Pics\folder.jpg)");
  files.AddFile(R"(C:\Pics\deeper\e.jpg)");
  EXPECT_THAT(Enumerate(R"(c:\PICS\)", {"*.bmp", "*.jpg"}), ElementsAre("c.bmp", "A.jpg", "b.JPG", "_.jpg"));
  EXPECT_THAT(Enumerate("C:/Pics/", {"?.jpg"}), ElementsAre("A.jpg", "b.JPG", "_.jpg"));
  EXPECT_THAT(Enumerate(R"(C:\Pics\folder.jpg\)", {"*"}), IsEmpty());
  EXPECT_THAT(Enumerate(R"(C:\Nothing\)", {"*"}), ElementsAre("failure 7"));

  files.AddDirectory(R"(C:\Pics\hidden)", kAttributeHidden);
  files.AddDirectory(R"(C:\Pics\system)", kAttributeSystem);
  EXPECT_THAT(
      files.EnumerateFolder(R"(C:\Pics\)", {"*.bmp"}, [](const std::string& name) { EXPECT_EQ(name, "c.bmp"); }),
      ElementsAre("deeper", "folder.jpg", "system"));
  EXPECT_EQ(files.IdOf(R"(C:\pics\deeper\)"), files.IdOf("C:/Pics/Deeper"));
  EXPECT_NE(files.IdOf(R"(C:\Pics\)"), files.IdOf(R"(C:\Pics\deeper\)"));
  EXPECT_THROW(files.IdOf(R"(C:\Pics\A.jpg)"), Failure);

  files.MakeUnreadable(R"(C:\Pics)", 2);
  EXPECT_THAT(Enumerate(R"(C:\Pics\)", {"*"}), ElementsAre("A.jpg", "b.JPG", "failure 8"));
  files.Remove(R"(C:\Pics\deeper)");
  EXPECT_EQ(files.FindFile(R"(C:\Pics\deeper\e.jpg)", kAttributeNormal), "");
}

TEST_F(MemoryFileSystemTest, FindsWhatTheMaskAllows) {
  files.AddFile(R"(C:\A directory\Long name.jpg)");
  files.AddFile(R"(C:\A directory\secret)", "", kAttributeHidden | kAttributeSystem);
  files.SetShortName(R"(C:\A directory)", "ADIREC~1");
  files.SetShortName(R"(C:\A directory\Long name.jpg)", "LONGNA~1.JPG");
  const struct {
    const char* path;
    int mask;
    const char* found;
  } cases[] = {
      {R"(c:\a directory\long NAME.jpg)", kAttributeNormal, "Long name.jpg"},
      {R"(C:\A directory\longna~1.jpg)", kAttributeNormal, "Long name.jpg"},
      {R"(C:\A directory\*.jpg)", kAttributeNormal, "Long name.jpg"},
      {R"(C:\A directory)", kAttributeNormal, ""},
      {R"(C:\adirec~1)", kAttributeDirectory, "A directory"},
      {R"(C:\A directory\secret)", kAttributeHidden, ""},
      {R"(C:\A directory\secret)", kAll, "secret"},
      {R"(C:\A directory\)", kAttributeDirectory, "A directory"},
      {R"(C:\A directory\)", kAttributeNormal, ""},
      {R"(C:\A directory\Long name.jpg\)", kAll, ""},
      {R"(C:\other\x)", kAll, ""},
  };
  for (const auto& [path, mask, found] : cases) EXPECT_EQ(files.FindFile(path, mask), found) << path;

  const std::string path = R"(C:\A directory\Long name.jpg)";
  EXPECT_EQ(files.GetShortPathName(path, 260), R"(C:\ADIREC~1\LONGNA~1.JPG)");
  EXPECT_EQ(files.GetShortPathName(path, 4), R"(C:\)");
  EXPECT_EQ(files.GetShortPathName(R"(C:\none)", 260), "");
  files.failures.FailCall(FileCall::kFind, 1, 1);
  EXPECT_THROW(files.FindFile(path, kAll), Failure);
  EXPECT_EQ(files.FindFile(path, kAll), "Long name.jpg");
}

}  // namespace
}  // namespace quorvale
