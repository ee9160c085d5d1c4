#include "playlist/list_entry.h"

#include "base/text.h"

namespace quorvale {
namespace {

// Reading stops one column before the directory's: column 255 separates the two and is read with the directory.
constexpr std::size_t kNameColumnsRead = 254;

}  // namespace

std::string MakeListEntry(const std::string& name, const std::string& directory) {
  std::string entry(kListEntryColumns, ' ');
  Overlay(entry, 1, name);
  Overlay(entry, kListEntryDirectoryColumn, directory);
  return entry;
}

std::string EntryPath(const std::string& entry, const PathSyntax& syntax) {
  std::string head = Trim(Left(entry, kNameColumnsRead));
  if (!head.empty() && syntax.IsSeparator(head.back())) return Trim(Left(entry, kNameColumnsRead + 1));
  return Trim(Mid(entry, kNameColumnsRead + 1)) + head;
}

}  // namespace quorvale
