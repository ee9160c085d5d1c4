#include "platform/desktop/system/directory_listing.h"

#include <algorithm>
#include <clocale>
#include <cstddef>
#include <cstdint>
#include <cwctype>

#include "base/text.h"

namespace quorvale {
namespace {

constexpr std::uint32_t kFirstSupplementary = 0x10000;
// Which bits of the first byte belong to the code point, by the character's length in bytes.
constexpr std::uint8_t kLeadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};

// The C library's table for all of Unicode, independent of the user's locale. If it is missing, only ASCII letters are
// folded.
std::uint32_t UpperCaseOf(std::uint32_t character) {
  static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  if (unicode == nullptr) return character;
  const std::uint32_t upper = towupper_l(static_cast<wint_t>(character), unicode);
  // For file names the dotless i and the long s are different letters from I and S.
  return upper < 0x80 ? character : upper;
}

std::uint32_t Decode(std::string_view character) {
  std::uint32_t value = static_cast<std::uint8_t>(character[0]) & kLeadBits[character.size()];
  for (const char c : character.substr(1)) value = value << 6 | (static_cast<std::uint8_t>(c) & 0x3F);
  return value;
}

void AppendFoldedCharacter(std::string_view character, std::string& folded) {
  const std::uint32_t upper = UpperCaseOf(Decode(character));
  if (upper < kFirstSupplementary) {
    AppendUtf8(static_cast<char16_t>(upper), folded);
    return;
  }
  AppendUtf8(static_cast<char16_t>(0xD800 + ((upper - kFirstSupplementary) >> 10)), folded);
  AppendUtf8(static_cast<char16_t>(0xDC00 + ((upper - kFirstSupplementary) & 0x3FF)), folded);
}

std::size_t CommonPrefix(std::string_view a, std::string_view b) {
  return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
}

// The eight bytes of `text` from `at` on as a number, which compares as the bytes do.
std::uint64_t HeadOf(std::string_view text, std::size_t at) {
  std::uint64_t head = 0;
  for (std::size_t i = at; i < at + sizeof head; ++i) {
    head = head << 8 | (i < text.size() ? static_cast<std::uint8_t>(text[i]) : 0);
  }
  return head;
}

// Appends the form that names compare by: upper-case letters, in an encoding whose bytes are in the order of UTF-16.
// Bytes that are not UTF-8 stay.
void AppendFolded(std::string_view name, std::string& folded) {
  while (!name.empty()) {
    const char c = name[0];
    std::size_t length = 1;
    if (static_cast<std::uint8_t>(c) < 0x80) {
      folded += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    } else if (const std::string character = Left(name, 1); character.size() > 1) {
      length = character.size();
      AppendFoldedCharacter(character, folded);
    } else {
      folded += c;
    }
    name.remove_prefix(length);
  }
}

// Whether a name matches a pattern; both are folded.
bool MatchesFolded(std::string_view name, std::string_view pattern) {
  // Where to continue if the text behind the last star does not match: the star then stands for one byte more.
  std::string_view retry_name;
  std::string_view retry_pattern;
  bool has_star = false;
  while (true) {
    if (!pattern.empty() && pattern[0] == '*') {
      pattern.remove_prefix(1);
      // The usual case, such as "*.jpg".
      if (pattern.find_first_of("*?") == std::string_view::npos) return name.ends_with(pattern);
      has_star = true;
      retry_name = name;
      retry_pattern = pattern;
    } else if (!pattern.empty() && !name.empty() && pattern[0] == '?') {
      pattern.remove_prefix(1);
      do name.remove_prefix(1);
      while (!name.empty() && IsContinuation(name[0]));
    } else if (!pattern.empty() && !name.empty() && pattern[0] == name[0]) {
      pattern.remove_prefix(1);
      name.remove_prefix(1);
    } else if (pattern.empty() && name.empty()) {
      return true;
    } else if (has_star && !retry_name.empty()) {
      retry_name.remove_prefix(1);
      name = retry_name;
      pattern = retry_pattern;
    } else {
      return false;
    }
  }
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

void DirectoryListing::Report(const std::function<void(const std::string& name)>& found) {
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

// A camera's file names differ only behind a long common prefix. Most comparisons are decided by the eight bytes behind
// it, without access to the text.
void DirectoryListing::Sort(std::vector<Name>& names) const {
  if (names.empty()) return;
  std::string_view common = Folded(names.front());
  for (const Name& name : names) common = common.substr(0, CommonPrefix(common, Folded(name)));
  for (Name& name : names) name.head = HeadOf(Folded(name), common.size());
  std::sort(names.begin(), names.end(), [this](const Name& a, const Name& b) { return IsBefore(a, b); });
}

}  // namespace quorvale
