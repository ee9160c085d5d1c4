#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvale {

// Text is UTF-8. Lengths and positions count characters (code points) from 1; a byte that belongs to
// no valid character counts as one and comes through unchanged.

std::size_t Length(std::string_view text);

// Whether the byte goes on with a character that another began.
inline bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

// The first `count` characters, or all of them if there are fewer.
std::string Left(std::string_view text, std::size_t count);

// Everything from the character at `start` (1 or more) on; empty when the text is shorter.
std::string Mid(std::string_view text, std::size_t start);

// Whether no byte stands outside a valid character.
bool IsUtf8(std::string_view text);

// Without the spaces at both ends. Tabs and the like stay.
std::string Trim(std::string_view text);

// ASCII letters in upper case; every other character as it is.
std::string UpperCase(std::string_view text);

// Whether two texts differ in nothing but the case of ASCII letters.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

// Writes `piece` over `text` from the character at `column` (1 or more) on. The number of characters
// never changes: what does not fit is dropped.
void Overlay(std::string& text, std::size_t column, std::string_view piece);

}  // namespace quorvale
