#pragma once

namespace quorvale {

// How paths are written on the platform. "\" divides everywhere, so that lists from Windows are
// understood; a platform with another separator has both.
struct PathSyntax {
  char separator = '\\';

  bool IsSeparator(char c) const { return c == '\\' || c == separator; }
};

}  // namespace quorvale
