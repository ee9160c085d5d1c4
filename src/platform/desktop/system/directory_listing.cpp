#include "platform/desktop/system/directory_listing.h"

#include <algorithm>

#include "platform/desktop/system/file_names.h"

namespace quorvale {
namespace {

std::size_t CommonPrefix(std::string_view a, std::string_view b) {
  return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
}

// The eight bytes of `text` from `at` on as a number that compares as they do.
std::uint64_t HeadOf(std::string_view text, std::size_t at) {
  std::uint64_t head = 0;
  for (std::size_t i = at; i < at + sizeof head; ++i) {
    head = head << 8 | (i < text.size() ? static_cast<std::uint8_t>(text[i]) : 0);
  }
  return head;
}

}  // namespace

DirectoryListing::DirectoryListing(const std::vector<std::string>& patterns) {
  for (const std::string& pattern : patterns) AppendFolded(pattern, groups_.emplace_back().folded_pattern);
}

void DirectoryListing::Add(std::string_view name, const std::function<bool()>& is_wanted) {
  folded_.clear();
  AppendFolded(name, folded_);
  bool is_added = false;
  for (Group& group : groups_) {
    if (!MatchesFolded(folded_, group.folded_pattern)) continue;
    if (!is_added) {
      if (!is_wanted()) return;
      text_.append(folded_).append(name);
      is_added = true;
    }
    const std::size_t offset = text_.size() - name.size() - folded_.size();
    group.names.push_back(
        {0, offset, static_cast<std::uint32_t>(folded_.size()), static_cast<std::uint32_t>(name.size())});
  }
}

void DirectoryListing::GiveOut(const std::function<void(const std::string& name)>& found) {
  std::string given;
  for (Group& group : groups_) {
    Sort(group.names);
    for (const Name& name : group.names) {
      given = Raw(name);
      found(given);
    }
  }
}

bool DirectoryListing::IsBefore(const Name& a, const Name& b) const {
  if (a.head != b.head) return a.head < b.head;
  const int order = Folded(a).compare(Folded(b));
  return order != 0 ? order < 0 : Raw(a) < Raw(b);
}

// Names from a camera differ behind a long common beginning. With eight bytes from there at hand, most
// comparisons need not look at the text, which lies all over the memory.
void DirectoryListing::Sort(std::vector<Name>& names) const {
  if (names.empty()) return;
  std::string_view common = Folded(names.front());
  for (const Name& name : names) common = common.substr(0, CommonPrefix(common, Folded(name)));
  for (Name& name : names) name.head = HeadOf(Folded(name), common.size());
  std::sort(names.begin(), names.end(), [this](const Name& a, const Name& b) { return IsBefore(a, b); });
}

}  // namespace quorvale
