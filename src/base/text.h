#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvale {

// Text is UTF-8. Positions count characters (code points) from 1. An invalid byte counts as one character and is kept
// unchanged.

std::size_t Length(std::string_view text);

// Whether the byte is a UTF-8 continuation byte.
inline bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

// The first `count` characters, or all of them if there are fewer.
std::string Left(std::string_view text, std::size_t count);

// The text from the character at `start` (1 or more) to its end; empty if the text is shorter.
std::string Mid(std::string_view text, std::size_t start);

// Whether the whole text is valid UTF-8.
bool IsUtf8(std::string_view text);

// Removes the spaces at both ends, but no tabs or other white space.
std::string Trim(std::string_view text);

// Removes all of these characters at both ends.
inline constexpr std::string_view kWhiteSpace = " \t\r\n";
std::string_view TrimWhiteSpace(std::string_view text);

// Removes and returns what precedes the first `delimiter` in `text`; the delimiter is dropped. Without a delimiter
// returns all of `text`. Tokens may be empty, so loop until `text` is empty, not the result.
std::string CutToken(std::string& text, char delimiter);

// Removes the first line from `text` and returns it with its line end: LF, CR LF or CR.
std::string_view CutLine(std::string_view& text);

// Appends a UTF-16 unit as UTF-8. The units of a surrogate pair become three bytes each.
void AppendUtf8(char16_t unit, std::string& text);

// Converts text in Windows code page 1252 to UTF-8. The five bytes that it does not define become the control
// characters with the same numbers.
std::string FromCodePage1252(std::string_view bytes);

// Converts ASCII letters to upper case.
std::string UpperCase(std::string_view text);

// Compares texts; the case of ASCII letters is ignored.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

// Overwrites characters of `text` with `piece`, beginning at `column` (1 or more). The number of characters does not
// change, so a long `piece` is cut.
void Overlay(std::string& text, std::size_t column, std::string_view piece);

}  // namespace quorvale
