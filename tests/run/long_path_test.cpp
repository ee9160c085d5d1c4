#include "run/long_path.h"

#include "support/headless_fixture.h"

namespace quorvale {
namespace {

class LongPathTest : public HeadlessTest {
 protected:
  void Fill(const PathSyntax& syntax) {
    desktop.files.SetSyntax(syntax);
    const std::string root = syntax.separator == '/' ? "" : "C:";
    const std::string s(1, syntax.separator);
    desktop.files.AddFile(root + s + "Long Folder" + s + "Long Name.jpg");
    if (syntax.separator == '/') return;
    desktop.files.SetShortName("C:\\Long Folder", "LONGFO~1");
    desktop.files.SetShortName("C:\\Long Folder\\Long Name.jpg", "LONGNA~1.JPG");
  }
};

TEST_F(LongPathTest, EachElementGetsItsLongName) {
  Fill({'\\'});
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"", ""},
      {"C:\\LONGFO~1\\LONGNA~1.JPG", "C:\\Long Folder\\Long Name.jpg"},
      {"c:\\longfo~1\\", "c:\\Long Folder\\"},
      {"C:\\LONGFO~1", "C:\\Long Folder"},
      {"C:\\gone\\x.jpg", "C:\\gone\\x.jpg"},
      {"C:\\LONGFO~1\\gone\\", "C:\\LONGFO~1\\gone\\"},
      {"C:\\LONGFO~1\\\\", "C:\\Long Folder\\"},
      {"C:\\\\LONGFO~1\\\\LONGNA~1.JPG", "C:\\Long Folder\\Long Name.jpg"},
  };
  for (const auto& [path, expected] : cases) EXPECT_EQ(GetLongPath(desktop.files, path), expected) << path;
}

TEST_F(LongPathTest, UnixPathsAreTheirOwnLongForm) {
  Fill({'/'});
  for (const char* path : {"/Long Folder/Long Name.jpg", "/Long Folder/", "/gone/x", "/"}) {
    EXPECT_EQ(GetLongPath(desktop.files, path), path);
  }
  for (const char* path : {"/Long Folder//", "//Long Folder/", "//Long Folder///"}) {
    EXPECT_EQ(GetLongPath(desktop.files, path), "/Long Folder/") << path;
  }
  EXPECT_EQ(GetLongPath(desktop.files, "/Long Folder//Long Name.jpg//"), "/Long Folder/Long Name.jpg/");
}

TEST_F(LongPathTest, ALookupThatFailsLeavesItsElementOut) {
  Fill({'\\'});
  desktop.files.failures.FailCall(FileCall::kFind, 1, 1);
  EXPECT_EQ(GetLongPath(desktop.files, "C:\\LONGFO~1\\LONGNA~1.JPG"), "");
  desktop.files.failures.FailCall(FileCall::kFind, 1, 1);
  EXPECT_EQ(GetLongPath(desktop.files, "C:\\LONGFO~1\\"), "\\");
  desktop.files.failures.FailCall(FileCall::kFind, 2, 1);
  EXPECT_EQ(GetLongPath(desktop.files, "C:\\LONGFO~1\\LONGNA~1.JPG"), "C:\\Long Name.jpg");
  desktop.files.AddFile("C:\\Long Folder\\Inner\\x.jpg");
  desktop.files.failures.FailCall(FileCall::kFind, 2, 1);
  desktop.files.failures.FailCall(FileCall::kFind, 3, 1);
  EXPECT_EQ(GetLongPath(desktop.files, "C:\\LONGFO~1\\Inner\\x.jpg"), "C:\\x.jpg");
}

TEST_F(LongPathTest, OnUnixAFailedLookupLeavesItsElementOutToo) {
  Fill({'/'});
  desktop.files.failures.FailCall(FileCall::kFind, 1, 1);
  EXPECT_EQ(GetLongPath(desktop.files, "/Long Folder/"), "/");
  desktop.files.failures.FailCall(FileCall::kFind, 2, 1);
  EXPECT_EQ(GetLongPath(desktop.files, "/Long Folder/Long Name.jpg"), "/Long Name.jpg");
}

// The files in memory take the root for the current directory.
TEST_F(LongPathTest, APathWithoutSeparatorIsItsLookup) {
  Fill({'/'});
  for (const auto& [path, expected] : std::vector<std::pair<const char*, const char*>>{
           {"Long Folder", "Long Folder"}, {"Long Folder/", "Long Folder/"}, {"gone", ""}, {"gone/", "/"}}) {
    EXPECT_EQ(GetLongPath(desktop.files, path), expected) << path;
  }
  desktop.files.failures.FailCall(FileCall::kFind, 1, 1);
  EXPECT_EQ(GetLongPath(desktop.files, "Long Folder/"), "/");
}

TEST_F(LongPathTest, HiddenElementsAndBothSeparatorsAreFound) {
  Fill({'\\'});
  desktop.files.AddDirectory("C:\\Hidden Folder", kAttributeHidden | kAttributeSystem);
  desktop.files.SetShortName("C:\\Hidden Folder", "HIDDEN~1");
  EXPECT_EQ(GetLongPath(desktop.files, "C:\\HIDDEN~1"), "C:\\Hidden Folder");
  Fill({'/'});
  EXPECT_EQ(GetLongPath(desktop.files, "/Long Folder\\"), "/Long Folder\\");
}

TEST_F(LongPathTest, TheShortPathOfWhatIsNotThereIsEmpty) {
  Fill({'\\'});
  EXPECT_EQ(GetShortPath(desktop.files, "C:\\Long Folder\\Long Name.jpg"), "C:\\LONGFO~1\\LONGNA~1.JPG");
  EXPECT_EQ(GetShortPath(desktop.files, "C:\\Long Folder\\gone.jpg"), "");
  desktop.files.failures.FailCall(FileCall::kShortName, 1, 1);
  EXPECT_EQ(GetShortPath(desktop.files, "C:\\Long Folder\\Long Name.jpg"), "");
}

}  // namespace
}  // namespace quorvale
