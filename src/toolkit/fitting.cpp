#include "toolkit/fitting.h"

#include <algorithm>
#include <cstddef>

#include "base/text.h"

namespace quorvale {
namespace {

// The smallest readable letters.
constexpr double kLeastScale = 0.6;
constexpr char kEllipsis[] = "\xE2\x80\xA6";

std::string Ends(const std::string& text, std::size_t length, std::size_t kept) {
  const std::size_t head = kept / 2;
  return Left(text, head) + kEllipsis + Mid(text, length - (kept - head) + 1);
}

}  // namespace

double LayoutScale(double wanted, double room, double needed) {
  return std::max(kLeastScale, std::min(wanted, room / needed));
}

std::string WithoutMiddle(const std::string& text, const std::function<bool(const std::string&)>& fits) {
  if (fits(text)) return text;
  const std::size_t length = Length(text);
  std::size_t fitting = 0;
  std::size_t too_long = length;
  while (fitting + 1 < too_long) {
    const std::size_t kept = fitting + (too_long - fitting) / 2;
    (fits(Ends(text, length, kept)) ? fitting : too_long) = kept;
  }
  return Ends(text, length, fitting);
}

}  // namespace quorvale
