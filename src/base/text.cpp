#include "base/text.h"

#include <algorithm>
#include <cstdint>

namespace quorvale {
namespace {

// The length in bytes of the character at `at`; 1 for an invalid byte.
std::size_t CharacterBytes(std::string_view text, std::size_t at) {
  const auto lead = static_cast<std::uint8_t>(text[at]);
  std::size_t length = 1;
  if (lead >= 0xC2 && lead <= 0xDF) length = 2;
  if (lead >= 0xE0 && lead <= 0xEF) length = 3;
  if (lead >= 0xF0 && lead <= 0xF4) length = 4;
  if (length == 1 || at + length > text.size()) return 1;
  for (std::size_t i = 1; i < length; ++i) {
    if (!IsContinuation(text[at + i])) return 1;
  }
  // Rejects overlong forms, surrogates and values above U+10FFFF.
  const auto second = static_cast<std::uint8_t>(text[at + 1]);
  const bool invalid = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
                       (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
  return invalid ? 1 : length;
}

// The byte offset of character `count` (from 0), or the text's size if it is shorter.
std::size_t ByteOffset(std::string_view text, std::size_t count) {
  std::size_t at = 0;
  for (; count > 0 && at < text.size(); --count) at += CharacterBytes(text, at);
  return at;
}

char UpperCase(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

std::size_t Length(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); at += CharacterBytes(text, at)) ++count;
  return count;
}

bool IsUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t bytes = CharacterBytes(text, at);
    if (bytes == 1 && static_cast<std::uint8_t>(text[at]) >= 0x80) return false;
    at += bytes;
  }
  return true;
}

std::string Left(std::string_view text, std::size_t count) {
  return std::string(text.substr(0, ByteOffset(text, count)));
}

std::string Mid(std::string_view text, std::size_t start) {
  return std::string(text.substr(ByteOffset(text, start - 1)));
}

std::string Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  const std::size_t last = text.find_last_not_of(' ');
  return std::string(text.substr(first, last - first + 1));
}

std::string UpperCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](char c) { return UpperCase(c); });
  return result;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return UpperCase(x) == UpperCase(y); });
}

void Overlay(std::string& text, std::size_t column, std::string_view piece) {
  const std::size_t first = ByteOffset(text, column - 1);
  const std::string_view rest = std::string_view(text).substr(first);
  const std::size_t count = std::min(Length(piece), Length(rest));
  const std::string head = text.substr(0, first);
  const std::string tail(rest.substr(ByteOffset(rest, count)));
  text = head + Left(piece, count) + tail;
}

}  // namespace quorvale
