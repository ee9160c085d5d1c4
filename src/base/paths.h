#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvale {

// The platform's path syntax. "\\" is a separator everywhere, so that lists from Windows work; platforms with another
// separator accept both.
struct PathSyntax {
  char separator = '\\';

  bool IsSeparator(char c) const { return c == '\\' || c == separator; }
};

// Where the name behind the last separator begins: 0 without a separator, the path's size if it ends in one. Each
// character of `separators` is one.
inline std::size_t NameStart(std::string_view path, std::string_view separators) {
  return path.find_last_of(separators) + 1;
}
inline std::size_t NameStart(std::string_view path, const PathSyntax& syntax) {
  const char separators[] = {'\\', syntax.separator};
  return NameStart(path, std::string_view(separators, sizeof separators));
}

inline constexpr std::int32_t kPathDrive = 0;      // two characters, "C:"
inline constexpr std::int32_t kPathDirectory = 1;  // without the drive; keeps its first and last separator
inline constexpr std::int32_t kPathName = 2;       // ends before its first dot
inline constexpr std::int32_t kPathExtension = 3;  // begins with the name's first dot and ends before the next

// One of the four parts of a path. Fails with kInvalidArgument for any other `part`.
std::string PathPart(const std::string& path, std::int32_t part, const PathSyntax& syntax);

}  // namespace quorvale
