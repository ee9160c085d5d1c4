#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvale {

// The number at the start of `text`, or 0. Ignores blanks everywhere and any text after the number. "&H...&" is a
// 32-bit hexadecimal number.
double LenientParse(std::string_view text);

// Like `LenientParse`, but the whole text must be a number; only blanks around it are allowed. Fails with kNotANumber
// otherwise, also on an empty text.
double StrictNumber(std::string_view text);

// Rounds half to even. Fails with kOverflow outside the result's range.
std::int16_t RoundToInt16(double value);
std::int32_t RoundToInt32(double value);

// Whether the text of a flag means on: `LenientParse` gives exactly 1.
bool IsOn(std::string_view text);

}  // namespace quorvale
