#include "run/set_up.h"

#include "support/headless_fixture.h"

namespace quorvale {
namespace {

class LongPathTest : public HeadlessTest {
 protected:
  void Fill(char separator) {
    desktop.files.SetSyntax({separator});
    const std::string root = separator == '/' ? "" : "C:";
    desktop.files.AddFile(root + separator + "Long Folder" + separator + "Long Name.jpg");
    if (separator == '/') return;
    desktop.files.AddFile("C:\\Long Folder\\Inner\\x.jpg");
    desktop.files.AddDirectory("C:\\Hidden Folder", kAttributeHidden | kAttributeSystem);
    for (const auto& [path, name] : {std::pair{"C:\\Long Folder", "LONGFO~1"},
                                     {"C:\\Long Folder\\Long Name.jpg", "LONGNA~1.JPG"},
                                     {"C:\\Hidden Folder", "HIDDEN~1"}}) {
      desktop.files.SetShortName(path, name);
    }
  }
};

TEST_F(LongPathTest, EachElementGetsItsLongNameOrIsLeftOutIfItsLookupFails) {
  struct Case {
    char separator;
    const char* path;
    const char* expected;
    std::vector<int> failing_lookups = {};
  };
  // The files in memory take the root for the current directory.
  const std::vector<Case> cases = {
      {'\\', "", ""},
      {'\\', "C:\\LONGFO~1\\LONGNA~1.JPG", "C:\\Long Folder\\Long Name.jpg"},
      {'\\', "c:\\longfo~1\\", "c:\\Long Folder\\"},
      {'\\', "C:\\LONGFO~1", "C:\\Long Folder"},
      {'\\', "C:\\gone\\x.jpg", "C:\\gone\\x.jpg"},
      {'\\', "C:\\LONGFO~1\\gone\\", "C:\\LONGFO~1\\gone\\"},
      {'\\', "C:\\LONGFO~1\\\\", "C:\\Long Folder\\"},
      {'\\', "C:\\\\LONGFO~1\\\\LONGNA~1.JPG", "C:\\Long Folder\\Long Name.jpg"},
      {'\\', "C:\\HIDDEN~1", "C:\\Hidden Folder"},
      {'\\', "C:\\LONGFO~1\\LONGNA~1.JPG", "", {1}},
      {'\\', "C:\\LONGFO~1\\", "\\", {1}},
      {'\\', "C:\\LONGFO~1\\LONGNA~1.JPG", "C:\\Long Name.jpg", {2}},
      {'\\', "C:\\LONGFO~1\\Inner\\x.jpg", "C:\\x.jpg", {2, 3}},
      {'/', "/Long Folder/Long Name.jpg", "/Long Folder/Long Name.jpg"},
      {'/', "/Long Folder/", "/Long Folder/"},
      {'/', "/gone/x", "/gone/x"},
      {'/', "/", "/"},
      {'/', "/Long Folder//", "/Long Folder/"},
      {'/', "//Long Folder///", "/Long Folder/"},
      {'/', "/Long Folder//Long Name.jpg//", "/Long Folder/Long Name.jpg/"},
      {'/', "/Long Folder\\", "/Long Folder\\"},
      {'/', "Long Folder", "Long Folder"},
      {'/', "Long Folder/", "Long Folder/"},
      {'/', "gone", ""},
      {'/', "gone/", "/"},
      {'/', "Long Folder/", "/", {1}},
      {'/', "/Long Folder/", "/", {1}},
      {'/', "/Long Folder/Long Name.jpg", "/Long Name.jpg", {2}},
  };
  for (const Case& c : cases) {
    Fill(c.separator);
    for (const int lookup : c.failing_lookups) desktop.files.failures.FailCall(FileCall::kFind, lookup, 1);
    EXPECT_EQ(GetLongPath(desktop.files, c.path), c.expected) << c.path;
  }
}

TEST_F(LongPathTest, TheShortPathOfWhatIsNotThereIsEmpty) {
  Fill('\\');
  EXPECT_EQ(GetShortPath(desktop.files, "C:\\Long Folder\\Long Name.jpg"), "C:\\LONGFO~1\\LONGNA~1.JPG");
  EXPECT_EQ(GetShortPath(desktop.files, "C:\\Long Folder\\gone.jpg"), "");
  desktop.files.failures.FailCall(FileCall::kShortName, 1, 1);
  EXPECT_EQ(GetShortPath(desktop.files, "C:\\Long Folder\\Long Name.jpg"), "");
}

}  // namespace
}  // namespace quorvale
