#include "base/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "base/failure.h"
#include "base/strings.h"
#include "base/text.h"

namespace quorvale {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string WithoutBlanks(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char c : text) {
    if (!IsBlank(c)) result += c;
  }
  return result;
}

// A number and how many characters it has in the text; 0 characters means that there is no number.
struct Prefix {
  double value = 0;
  std::size_t length = 0;
};

// "&H", up to eight hexadecimal digits, and a closing "&" that may be missing.
Prefix HexPrefix(std::string_view text) {
  if (text.size() < 3 || text[0] != '&' || (text[1] != 'H' && text[1] != 'h')) return {};
  std::uint32_t bits = 0;
  const char* const first = text.data() + 2;
  const auto [end, error] = std::from_chars(first, text.data() + text.size(), bits, 16);
  if (error != std::errc()) return {};
  auto length = static_cast<std::size_t>(end - text.data());
  if (length < text.size() && text[length] == '&') ++length;
  return {static_cast<double>(static_cast<std::int32_t>(bits)), length};
}

// An optional sign, digits with at most one point, and an exponent where digits follow it.
Prefix DecimalPrefix(std::string_view text) {
  std::size_t at = 0;
  const bool negative = !text.empty() && text[0] == '-';
  if (negative || (!text.empty() && text[0] == '+')) ++at;
  const std::size_t first = at;
  std::size_t digits = 0;
  bool point = false;
  for (; at < text.size() && (IsDigit(text[at]) || (text[at] == '.' && !point)); ++at) {
    if (text[at] == '.') {
      point = true;
    } else {
      ++digits;
    }
  }
  if (digits == 0) return {};
  const std::string mantissa(text.substr(first, at - first));
  std::string exponent;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    std::size_t end = at + 1;
    if (end < text.size() && (text[end] == '+' || text[end] == '-')) ++end;
    const std::size_t exponent_digits = end;
    while (end < text.size() && IsDigit(text[end])) ++end;
    if (end > exponent_digits) {
      exponent = "e" + std::string(text.substr(at + 1, end - at - 1));
      if (exponent[1] == '+') exponent.erase(1, 1);
      at = end;
    }
  }
  const std::string number = (mantissa[0] == '.' ? "0" : "") + mantissa + exponent;
  double value = 0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    const bool is_fraction = number.find_first_not_of('0') == number.find('.');
    const bool is_tiny = exponent.empty() ? is_fraction : exponent.starts_with("e-");
    value = is_tiny ? 0.0 : std::numeric_limits<double>::infinity();
  }
  return {negative ? -value : value, at};
}

Prefix NumberPrefix(std::string_view text) {
  const Prefix hex = HexPrefix(text);
  return hex.length > 0 ? hex : DecimalPrefix(text);
}

template <typename Integer>
Integer RoundTo(double value) {
  // The default rounding mode of the floating-point unit is to the nearest, ties to even.
  const double rounded = std::nearbyint(value);
  if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max())) {
    throw Failure(FailureNumber::kOverflow, strings::failures::kOverflow, "Numbers");
  }
  return static_cast<Integer>(rounded);
}

}  // namespace

double LenientParse(std::string_view text) { return NumberPrefix(WithoutBlanks(text)).value; }

double StrictNumber(std::string_view text) {
  const std::string trimmed = Trim(text);
  const Prefix prefix = NumberPrefix(trimmed);
  if (prefix.length == 0 || prefix.length != trimmed.size()) {
    throw Failure(FailureNumber::kNotANumber, strings::failures::kNotANumber, "Numbers");
  }
  return prefix.value;
}

std::int16_t RoundToInt16(double value) { return RoundTo<std::int16_t>(value); }
std::int32_t RoundToInt32(double value) { return RoundTo<std::int32_t>(value); }

bool IsOn(std::string_view text) { return LenientParse(text) == 1; }

}  // namespace quorvale
