#pragma once

namespace quorvale {

// The platform's path syntax. "\" is a separator everywhere, so that lists from Windows work; platforms with another
// separator accept both.
struct PathSyntax {
  char separator = '\\';

  bool IsSeparator(char c) const { return c == '\\' || c == separator; }
};

}  // namespace quorvale
