#include "run/long_path.h"

#include <optional>

#include "base/failure.h"
#include "system/file_system.h"

namespace quorvale {
namespace {

constexpr int kAnyEntry = kAttributeHidden | kAttributeSystem | kAttributeDirectory | kAttributeArchive;
constexpr std::uint32_t kShortPathBuffer = 250;

// No value if the search itself failed.
std::optional<std::string> Lookup(FileSystem& files, const std::string& path) {
  try {
    return files.FindFile(path, kAnyEntry);
  } catch (const Failure&) {
    return std::nullopt;
  }
}

std::size_t LastSeparator(const std::string& path, const PathSyntax& syntax) {
  std::size_t position = path.size();
  while (position > 0 && !syntax.IsSeparator(path[position - 1])) --position;
  return position == 0 ? std::string::npos : position - 1;
}

// Consecutive separators count as one. Drops the leading separator of a root path too.
void DropLastSeparators(std::string& path, const PathSyntax& syntax) {
  while (!path.empty() && syntax.IsSeparator(path.back())) path.pop_back();
}

}  // namespace

std::string GetLongPath(FileSystem& files, const std::string& path) {
  if (path.empty()) return {};
  const PathSyntax syntax = files.Syntax();
  const bool closed = syntax.IsSeparator(path.back());
  std::string ending = closed ? std::string(1, path.back()) : std::string();
  std::string rest = path;
  DropLastSeparators(rest, syntax);

  const std::optional<std::string> last = Lookup(files, rest);
  if (!last) return ending;
  std::string result = *last;
  std::size_t separator = LastSeparator(rest, syntax);
  if (separator == std::string::npos) return result + ending;
  if (result.empty()) return path;

  rest.resize(separator);
  DropLastSeparators(rest, syntax);
  separator = LastSeparator(rest, syntax);
  while (separator != std::string::npos) {
    if (const std::optional<std::string> name = Lookup(files, rest)) result.insert(0, *name + syntax.separator);
    rest.resize(separator);
    DropLastSeparators(rest, syntax);
    separator = LastSeparator(rest, syntax);
  }
  // Only the drive is left, or nothing. It has no long form.
  return rest + syntax.separator + result + ending;
}

std::string GetShortPath(FileSystem& files, const std::string& path) {
  return files.GetShortPathName(path, kShortPathBuffer);
}

}  // namespace quorvale
