#include "base/paths.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "support/failure_of.h"

namespace quorvale {
namespace {

constexpr PathSyntax kWindows{'\\'};
constexpr PathSyntax kUnix{'/'};

TEST(PathsTest, PathPartSplitsAtTheEdges) {
  const std::tuple<PathSyntax, const char*, std::vector<std::string>> cases[] = {
      {kWindows, "C:\\pics\\sea.bmp", {"C:", "\\pics\\", "sea", ".bmp"}},
      {kWindows, "a.b.jpg", {"", "", "a", ".b"}},
      {kWindows, "C:sea.bmp", {"C:", "", "sea", ".bmp"}},
      {kWindows, "sea", {"", "", "sea", ""}},
      {kWindows, "sea.", {"", "", "sea", ""}},
      {kWindows, ".jpg", {"", "", "", ".jpg"}},
      {kWindows, "C:\\pics\\", {"C:", "\\", "pics\\", ""}},
      {kWindows, "C:\\pics\\.jpg", {"C:", "\\", "pics\\", ".jpg"}},
      {kWindows, "C:\\a.b\\sea", {"C:", "\\a.b\\", "sea", ""}},
      {kWindows, "C:\\a.b\\", {"C:", "\\", "a", ".b\\"}},
      {kWindows, "", {"", "", "", ""}},
      {kWindows, "a/b.jpg", {"", "", "a/b", ".jpg"}},
      {kWindows, "\xC3\xA9:x.jpg", {"\xC3\xA9:", "", "x", ".jpg"}},
      {kUnix, "/home/me/sea.bmp", {"", "/home/me/", "sea", ".bmp"}},
      {kUnix, "C:\\pics\\sea.bmp", {"C:", "\\pics\\", "sea", ".bmp"}},
      {kUnix, "/a.b/c", {"", "/a.b/", "c", ""}},
  };
  for (const auto& [syntax, path, parts] : cases) {
    for (std::int32_t part = 0; part < 4; ++part) {
      EXPECT_EQ(PathPart(path, part, syntax), parts[static_cast<std::size_t>(part)]) << path << " " << part;
    }
  }
  for (const std::int32_t part : {-1, 4}) {
    EXPECT_EQ(FailureOf([&] { PathPart("x", part, kWindows); }), FailureNumber::kInvalidArgument) << part;
  }
}

}  // namespace
}  // namespace quorvale
