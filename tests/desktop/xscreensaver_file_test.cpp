#include "platform/desktop/system/xscreensaver_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "desktop/temporary_directory.h"

namespace quorvale {
namespace {

constexpr char kOurs[] = "mode:\t\tone\nselected:\t0\n";

TEST(SelectSaver, PutsTheProgramFirstAndKeepsTheRest) {
  const std::string line = "programs:\tquorvale --root\t\\n";
  const std::tuple<const char*, std::string, std::string> cases[] = {
      {"new file", "", kOurs + line + "\n"},
      {"other settings and comments", "# mode: two\n!x\ntimeout:\t0:05:00\n",
       "# mode: two\n!x\ntimeout:\t0:05:00\n" + (kOurs + line) + "\n"},
      {"no line end at the end", "lock:\tTrue", "lock:\tTrue\n" + (kOurs + line) + "\n"},
      {"in place", "Mode: random\nlock:\tTrue\nselected: 17\nsplash: True\n",
       "mode:\t\tone\nlock:\tTrue\nselected:\t0\nsplash: True\n" + line + "\n"},
      {"a list", "programs:\t\t\\\n\t  deco --root\t\\n\\\n- GL: \tflow --root \\n\\\n\nlock:\tTrue\n",
       line + "\\\n\t  deco --root\t\\n\\\n- GL: \tflow --root \\n\nlock:\tTrue\n" + kOurs},
      {"a list on the first line", "programs: deco --root \\n\\\n  flow\n",
       line + "\\\n deco --root \\n\\\n  flow\n" + kOurs},
      {"an empty list", "programs:\t\t\\\n\n", line + "\n" + kOurs},
      {"ours already, switched off and elsewhere",
       "programs:\\\n  deco \\n\\\n- \"My Show\" /opt/x/quorvale --root --old \\n\\\n  my-quorvale \\n\\\n",
       line + "\\\n  deco \\n\\\n  my-quorvale \\n\n" + kOurs},
      {"a setting whose value is that of another", "programsx: mode: 1\n",
       "programsx: mode: 1\n" + (kOurs + line) + "\n"},
  };
  for (const auto& [name, before, after] : cases) {
    SCOPED_TRACE(name);
    EXPECT_EQ(SelectSaver(before, "quorvale --root"), after);
    EXPECT_EQ(SelectSaver(after, "quorvale --root"), after);
  }
}

struct SelectSaverOfUserTest : testing::Test {
  TemporaryDirectory home;
};

TEST_F(SelectSaverOfUserTest, LeavesACopyOfWhatWasThere) {
  home.Write(".xscreensaver", "lock:\tTrue\n");
  EXPECT_TRUE(SelectSaverOfUser(home.Path(), "quorvale --root"));
  EXPECT_EQ(home.Read(".xscreensaver"), SelectSaver("lock:\tTrue\n", "quorvale --root"));
  // A second time there is nothing to change, and the copy is still the user's.
  EXPECT_TRUE(SelectSaverOfUser(home.Path(), "quorvale --root"));
  EXPECT_EQ(home.Read(".xscreensaver.before-quorvale"), "lock:\tTrue\n");
}

TEST_F(SelectSaverOfUserTest, MakesAFileThatIsMissing) {
  EXPECT_TRUE(SelectSaverOfUser(home.Path(), "quorvale --root"));
  EXPECT_EQ(home.Read(".xscreensaver"), SelectSaver("", "quorvale --root"));
  EXPECT_FALSE(std::filesystem::exists(home.Path(".xscreensaver.before-quorvale")));
}

TEST_F(SelectSaverOfUserTest, LeavesAFileAloneThatCannotHoldTheCommand) {
  home.Write(".xscreensaver", "lock:\tTrue\n");
  for (const char* command : {"/opt/a\nb/quorvale --root", "/opt/\"a\"/quorvale --root", "/a\\n/quorvale --root"}) {
    EXPECT_FALSE(SelectSaverOfUser(home.Path(), command));
  }
  EXPECT_EQ(home.Read(".xscreensaver"), "lock:\tTrue\n");
}

}  // namespace
}  // namespace quorvale
