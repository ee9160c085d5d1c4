#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvale {

// Names that match one of several wildcard patterns, gathered in any order and given out sorted.
class DirectoryListing {
 public:
  explicit DirectoryListing(const std::vector<std::string>& patterns);

  // Adds `name` to the groups of the patterns that it matches. `is_wanted` is asked at the first match.
  void Add(std::string_view name, const std::function<bool()>& is_wanted);

  // The names of the first pattern in name order, then those of the second, and so on.
  void GiveOut(const std::function<void(const std::string& name)>& found);

 private:
  // A name in `text_`: its folded form and then the name itself.
  struct Name {
    std::uint64_t head = 0;  // eight bytes of the folded form, the first that tell the names of the group apart
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
