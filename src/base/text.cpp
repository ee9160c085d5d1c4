#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace quorvale {
namespace {

// The length in bytes of the character at `at`, whose first byte is not ASCII; 1 for an invalid byte.
std::size_t LongCharacterBytes(std::string_view text, std::size_t at) {
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

// The length in bytes of the character at `at`; 1 for an invalid byte. The columns of a list entry are counted for
// every entry at every change of a list, and most are ASCII: these cost no call.
inline std::size_t CharacterBytes(std::string_view text, std::size_t at) {
  return static_cast<std::uint8_t>(text[at]) < 0x80 ? 1 : LongCharacterBytes(text, at);
}

// The byte offset of character `count` (from 0), or the text's size if it is shorter.
std::size_t ByteOffset(std::string_view text, std::size_t count) {
  std::size_t at = 0;
  for (; count > 0 && at < text.size(); --count) at += CharacterBytes(text, at);
  return at;
}

// The characters of the bytes 0x80 to 0x9F.
constexpr std::array<char16_t, 32> kBytesFrom80 = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                   0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

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

std::string_view TrimWhiteSpace(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kWhiteSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1);
}

std::string CutToken(std::string& text, char delimiter) {
  const std::size_t position = text.find(delimiter);
  if (position == std::string::npos) return std::exchange(text, {});
  std::string token = text.substr(0, position);
  text.erase(0, position + 1);
  return token;
}

std::string_view CutLine(std::string_view& text) {
  std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
  end += text.substr(end).starts_with("\r\n") ? 2 : 1;
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(line.size());
  return line;
}

void AppendUtf8(char16_t unit, std::string& text) {
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

std::string FromCodePage1252(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    AppendUtf8(code >= 0x80 && code < 0xA0 ? kBytesFrom80[code - 0x80] : char16_t{code}, text);
  }
  return text;
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
