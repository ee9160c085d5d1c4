#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvale {

// The number that `text` begins with, or 0. Blanks are skipped wherever they stand, the "&H...&"
// form is a 32-bit hexadecimal number, and what follows the number is ignored.
double LenientParse(std::string_view text);

// The number that `text` is, in decimal or in the "&H...&" form, with blanks allowed around it.
// Fails with kNotANumber on any other text, the empty one included.
double StrictNumber(std::string_view text);

// The nearest whole number, ties to the even one. Fail with kOverflow outside the result's range.
std::int16_t RoundToInt16(double value);
std::int32_t RoundToInt32(double value);

// Whether an option that is a switch is on: it reads as exactly 1.
bool IsOn(std::string_view text);

}  // namespace quorvale
