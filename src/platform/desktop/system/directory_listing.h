#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvale {

// Collects the file names that match one of several wildcard patterns, and sorts them. Names compare as on NTFS: by
// their upper-case letters, in the order of UTF-16. In a pattern "*" stands for any text and "?" for one character.
class DirectoryListing {
 public:
  explicit DirectoryListing(const std::vector<std::string>& patterns);

  // Adds `name` for each pattern that it matches. Calls `is_wanted` at the first match only, since it may be slow.
  void Add(std::string_view name, const std::function<bool()>& is_wanted);

  // Calls `found` for the names of the first pattern in name order, then for those of the second, and so on.
  void Report(const std::function<void(const std::string& name)>& found);

 private:
  // A name in `text_`: its folded form, then the name itself.
  struct Name {
    std::uint64_t head = 0;  // eight bytes of the folded form, from behind the prefix that all names share
    std::size_t offset = 0;
    std::uint32_t folded_size = 0;
    std::uint32_t size = 0;
  };
  struct Group {
    std::string folded_pattern;
    std::vector<Name> names;
  };

  std::string_view Folded(const Name& name) const { return {text_.data() + name.offset, name.folded_size}; }
  std::string_view Raw(const Name& name) const { return {text_.data() + name.offset + name.folded_size, name.size}; }
  bool IsBefore(const Name& a, const Name& b) const;
  void Sort(std::vector<Name>& names) const;

  std::vector<Group> groups_;
  std::string text_;
  std::string folded_;
};

}  // namespace quorvale
