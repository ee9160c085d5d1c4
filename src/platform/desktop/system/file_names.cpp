#include "platform/desktop/system/file_names.h"

#include <clocale>
#include <cstddef>
#include <cstdint>
#include <cwctype>

#include "base/text.h"

namespace quorvale {
namespace {

constexpr std::uint32_t kFirstSupplementary = 0x10000;
// By the length of the character, what its first byte has of the code point.
constexpr std::uint8_t kLeadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};

// The system's table of upper-case letters for all of Unicode, whatever locale the user has. Where it is
// missing, only ASCII folds.
std::uint32_t UpperCaseOf(std::uint32_t character) {
  static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  if (unicode == nullptr) return character;
  const std::uint32_t upper = towupper_l(static_cast<wint_t>(character), unicode);
  // The dotless i and the long s are letters of their own in a file name.
  return upper < 0x80 ? character : upper;
}

std::uint32_t Decode(std::string_view character) {
  std::uint32_t value = static_cast<std::uint8_t>(character[0]) & kLeadBits[character.size()];
  for (const char c : character.substr(1)) value = value << 6 | (static_cast<std::uint8_t>(c) & 0x3F);
  return value;
}

// In UTF-8; the halves of a surrogate pair are written one by one.
void AppendUnit(std::uint32_t unit, std::string& text) {
  if (unit < 0x80) {
    text += static_cast<char>(unit);
    return;
  }
  if (unit < 0x800) {
    text += static_cast<char>(0xC0 | unit >> 6);
  } else {
    text += static_cast<char>(0xE0 | unit >> 12);
    text += static_cast<char>(0x80 | (unit >> 6 & 0x3F));
  }
  text += static_cast<char>(0x80 | (unit & 0x3F));
}

void AppendFoldedCharacter(std::string_view character, std::string& folded) {
  const std::uint32_t upper = UpperCaseOf(Decode(character));
  if (upper < kFirstSupplementary) {
    AppendUnit(upper, folded);
    return;
  }
  AppendUnit(0xD800 + ((upper - kFirstSupplementary) >> 10), folded);
  AppendUnit(0xDC00 + ((upper - kFirstSupplementary) & 0x3FF), folded);
}

}  // namespace

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

bool MatchesFolded(std::string_view name, std::string_view pattern) {
  // Where to go on when what follows the last star does not match: the star takes in one byte more.
  std::string_view retry_name;
  std::string_view retry_pattern;
  bool has_star = false;
  while (true) {
    if (!pattern.empty() && pattern[0] == '*') {
      pattern.remove_prefix(1);
      // The common case, a star and an ending.
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

}  // namespace quorvale
