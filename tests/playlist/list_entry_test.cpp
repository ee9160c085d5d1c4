#include "playlist/list_entry.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace quorvale {
namespace {

constexpr PathSyntax kWindows{'\\'};
constexpr PathSyntax kUnix{'/'};

// So many characters of two bytes each.
std::string Wide(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += "\xC3\xA9";
  return text;
}

TEST(ListEntryTest, EntriesLeadBackToTheirPaths) {
  struct Case {
    PathSyntax syntax;
    std::string entry;
    std::string path;
  };
  const std::string long_name(254, 'n');
  const std::vector<Case> cases = {
      {kWindows, MakeListEntry("sea.bmp", "C:\\pics\\"), "C:\\pics\\sea.bmp"},
      {kWindows, MakeListEntry("C:\\pics\\", "C:\\pics\\"), "C:\\pics\\"},
      {kWindows, "  C:\\pics\\sea.bmp ", "C:\\pics\\sea.bmp"},
      {kWindows, "C:\\pics\\", "C:\\pics\\"},
      {kWindows, "", ""},
      {kWindows, MakeListEntry("x/", "C:\\"), "C:\\x/"},
      {kWindows, MakeListEntry(long_name, "C:\\"), "C:\\" + long_name},
      {kWindows, MakeListEntry(long_name + "no room", "C:\\"), "nC:\\oom" + long_name},
      {kUnix, MakeListEntry("\xC3\xA9t\xC3\xA9 1.jpg", "/home/\xC3\xA9/"), "/home/\xC3\xA9/\xC3\xA9t\xC3\xA9 1.jpg"},
      {kUnix, MakeListEntry("/a/", "/a/"), "/a/"},
      {kUnix, "C:\\pics\\", "C:\\pics\\"},
      {kUnix, MakeListEntry("a b\nc.jpg", "/d e/"), "/d e/a b\nc.jpg"},
      {kUnix, MakeListEntry("\xFF\xC3.jpg", "/\xE2\x82/"), "/\xE2\x82/\xFF\xC3.jpg"},
      {kUnix, "\t/x.jpg\t ", "\t/x.jpg\t"},
      // 250 characters of two bytes each fit the name's columns, and as many the directory's.
      {kUnix, MakeListEntry(Wide(250), "/" + Wide(250) + "/"), "/" + Wide(250) + "/" + Wide(250)},
      // A directory of 254 characters still ends in its separator, a longer one is no directory any more.
      {kWindows, MakeListEntry(long_name.substr(1) + "\\", long_name.substr(1) + "\\"), long_name.substr(1) + "\\"},
      {kWindows, MakeListEntry(long_name + "\\", long_name + "\\"), "\\" + long_name + "\\" + long_name},
      {kWindows, long_name, long_name},
      {kWindows, long_name + "x", "x" + long_name},
  };
  for (const Case& c : cases) EXPECT_EQ(EntryPath(c.entry, c.syntax), c.path);
}

TEST(ListEntryTest, AnEntryHasItsColumns) {
  const std::string entry = MakeListEntry("sea.bmp", "C:\\Pics\\");
  EXPECT_EQ(entry, "sea.bmp" + std::string(248, ' ') + "C:\\Pics\\" + std::string(249, ' '));
  for (const std::string& name : {std::string(), Wide(255), std::string(600, 'n'), std::string("\xFF\xFE")}) {
    const std::string made = MakeListEntry(name, "/" + name);
    EXPECT_EQ(Length(made), 512U);
    EXPECT_EQ(Left(Mid(made, 256), 2), Left("/" + name + "  ", 2));
  }
}

}  // namespace
}  // namespace quorvale
