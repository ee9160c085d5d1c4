#include "toolkit/units.h"

#include <algorithm>
#include <cmath>

namespace quorvale {
namespace {

// Beyond any screen, yet small enough that the sum or difference of two fits an int.
constexpr double kFarthest = 500'000'000.0;

int Edge(double pixels) {
  if (std::isnan(pixels)) return 0;
  return static_cast<int>(std::lround(std::clamp(pixels, -kFarthest, kFarthest)));
}

}  // namespace

PixelRect Intersect(const PixelRect& a, const PixelRect& b) {
  const int left = std::max(a.left, b.left);
  const int top = std::max(a.top, b.top);
  return {left, top, std::max(0, std::min(a.Right(), b.Right()) - left),
          std::max(0, std::min(a.Bottom(), b.Bottom()) - top)};
}

double ToPixels(float twips, float scale) {
  return static_cast<double>(twips) / kTwipsPerPixel * static_cast<double>(scale);
}

PixelRect ToPixels(const TwipRect& rect, float scale) {
  const double left = ToPixels(rect.left, scale);
  const double top = ToPixels(rect.top, scale);
  const int left_edge = Edge(left);
  const int top_edge = Edge(top);
  return {left_edge, top_edge, std::max(0, Edge(left + ToPixels(rect.width, scale)) - left_edge),
          std::max(0, Edge(top + ToPixels(rect.height, scale)) - top_edge)};
}

}  // namespace quorvale
