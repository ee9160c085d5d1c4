#include "base/paths.h"

#include <array>

#include "base/failure.h"
#include "base/text.h"

namespace quorvale {

std::string PathPart(const std::string& path, std::int32_t part, const PathSyntax& syntax) {
  if (part < kPathDrive || part > kPathExtension) {
    throw Failure(FailureNumber::kInvalidArgument, "Invalid argument", "PathPart");
  }
  std::array<std::string, 4> parts;
  std::string rest = path;
  const std::string head = Left(path, 2);
  if (Mid(head, 2) == ":") {
    parts[kPathDrive] = head;
    rest.erase(0, head.size());
  }

  // Scans backwards to the last separator that is followed by a name. Each dot on the way shortens the name, which
  // so ends at its first dot.
  bool has_name = false;
  for (std::size_t position = rest.size(); position > 0 && !has_name; --position) {
    const char c = rest[position - 1];
    const bool is_last = position == rest.size();
    if (c == '.') {
      if (!is_last) parts[kPathExtension] = rest.substr(position - 1);
      rest.resize(position - 1);
    } else if (syntax.IsSeparator(c) && !is_last) {
      parts[kPathName] = rest.substr(position);
      parts[kPathDirectory] = rest.substr(0, position);
      has_name = true;
    }
  }
  if (!has_name) parts[kPathName] = rest;
  return parts[static_cast<std::size_t>(part)];
}

}  // namespace quorvale
