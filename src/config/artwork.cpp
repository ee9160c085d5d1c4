#include "config/artwork.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace quorvale {
namespace {

struct Point {
  double x = 0;
  double y = 0;
};

struct Patch {
  Pixel colour = 0;
  std::vector<Point> outline;
};

// The colour of a drawing at a point of its own plane.
using Shade = std::function<Pixel(Point)>;

// The icon shows a square of its plane.
constexpr double kIconStart = 14;
constexpr double kIconSide = 100;
constexpr Pixel kMount = 0xFFF4F1EA;
constexpr Pixel kMountEdge = 0xFFB9B2A4;
constexpr Pixel kPictureEdge = 0xFF3A3A3A;
constexpr Pixel kSweepEdge = 0xFFFFFFFF;
constexpr Pixel kFilm = 0xFF26221F;
constexpr Pixel kHole = 0xFFF4F1EA;

// The picture on the slide, on the icon's plane.
constexpr double kPictureLeft = 22;
constexpr double kPictureRight = 106;
constexpr double kPictureTop = 32;
constexpr double kPictureBottom = 96;

bool Inside(const std::vector<Point>& outline, Point at) {
  bool inside = false;
  for (std::size_t i = 0, last = outline.size() - 1; i < outline.size(); last = i++) {
    const Point& a = outline[i];
    const Point& b = outline[last];
    if ((a.y > at.y) != (b.y > at.y) && at.x < (b.x - a.x) * (at.y - a.y) / (b.y - a.y) + a.x) inside = !inside;
  }
  return inside;
}

// The colour of the topmost patch at a point.
Pixel ColourAt(const std::vector<Patch>& patches, Point at, Pixel ground) {
  const auto top =
      std::find_if(patches.rbegin(), patches.rend(), [at](const Patch& patch) { return Inside(patch.outline, at); });
  return top == patches.rend() ? ground : top->colour;
}

// Hills at sunrise.
Pixel Morning(Point at) {
  static const std::vector<Patch> kHills = {
      {0xFF6A6F88, {{22, 80}, {48, 52}, {72, 80}, {72, 96}, {22, 96}}},
      {0xFFF7F4F0, {{48, 52}, {41, 59.5}, {45, 58.5}, {48, 62}, {51.5, 58}, {55.5, 60.7}}},
      {0xFF2D4A3F,
       {{22, 82}, {34, 79.5}, {46, 82.5}, {58, 84}, {70, 82.5}, {86, 81}, {96, 82.5}, {106, 86}, {106, 96}, {22, 96}}},
  };
  constexpr Point kSun = {38, 50};
  constexpr double kSunRadius = 7;
  const bool in_sun = std::hypot(at.x - kSun.x, at.y - kSun.y) < kSunRadius;
  const Pixel sky = at.y < kSun.y ? 0xFF8FB0D4 : 0xFFF1CFAE;
  return ColourAt(kHills, at, in_sun ? 0xFFFFF3D0 : sky);
}

// Northern lights over dark hills.
Pixel Night(Point at) {
  static const std::vector<Patch> kPatches = {
      {0xFF4FD69A,
       {{22, 58},
        {40, 46},
        {56, 50},
        {68, 46},
        {80, 46},
        {92, 43},
        {106, 34},
        {106, 46},
        {92, 55},
        {80, 55},
        {68, 58},
        {56, 60},
        {40, 56},
        {22, 66}}},
      {0xFF0A2230, {{22, 72}, {44, 60}, {58, 66}, {72, 60}, {79, 64}, {92, 54}, {106, 66}, {106, 96}, {22, 96}}},
  };
  return ColourAt(kPatches, at, 0xFF0E1A38);
}

Pixel IconShade(Point in_icon) {
  constexpr double kEdge = 2;
  const Point at = {in_icon.x + kIconStart, in_icon.y + kIconStart};
  // The edge of the new picture: a slanted sweep.
  const double sweep = 78 - (at.y - kPictureTop) * 0.35;
  if (std::min(in_icon.x, in_icon.y) < kEdge || std::max(in_icon.x, in_icon.y) > kIconSide - kEdge) return kMountEdge;
  const double outside = std::max(std::max(kPictureLeft - at.x, at.x - kPictureRight),
                                  std::max(kPictureTop - at.y, at.y - kPictureBottom));
  if (outside > kEdge) return kMount;
  if (outside > 0) return kPictureEdge;
  if (std::abs(at.x - sweep) < kEdge) return kSweepEdge;
  return at.x < sweep ? Morning(at) : Night(at);
}

// The film's plane is `kFilmWidth` wide; its frames repeat downwards.
constexpr double kFilmWidth = 42;
constexpr double kFrameStep = 40;

Pixel FilmShade(Point at) {
  constexpr double kMargin = 8;
  constexpr double kHoleStep = 8;
  constexpr double kGap = 2;
  const double from_side = std::min(at.x, kFilmWidth - at.x);
  if (from_side < kMargin) {
    const double down = std::fmod(at.y, kHoleStep);
    return from_side > 2 && from_side < kMargin - 2 && down > 2 && down < kHoleStep - 2 ? kHole : kFilm;
  }
  const int frame = static_cast<int>(at.y / kFrameStep);
  const double top = at.y - frame * kFrameStep;
  if (top < kGap || top > kFrameStep - kGap) return kFilm;

  constexpr double kZoom = (kPictureBottom - kPictureTop) / (kFrameStep - 2 * kGap);
  const Point scene = {kPictureLeft + 8 + (at.x - kMargin) * kZoom, kPictureTop + (top - kGap) * kZoom};
  // The share of the frame that still shows the old picture.
  constexpr std::array kOldShares = {1.0, 0.5, 0.0};
  const double share = kOldShares[static_cast<std::size_t>(frame) % kOldShares.size()];
  return (at.x - kMargin) < share * (kFilmWidth - 2 * kMargin) ? Morning(scene) : Night(scene);
}

// The mean of a grid of points in the pixel, so that edges are smooth.
Pixel MeanOf(const Shade& shade, int x, int y, double per_pixel) {
  constexpr int kGrid = 4;
  std::array<std::uint32_t, 3> sums = {};
  for (int i = 0; i < kGrid * kGrid; ++i) {
    const int row = i / kGrid;
    const double dx = (i % kGrid + 0.5) / kGrid;
    const double dy = (row + 0.5) / kGrid;
    const Pixel pixel = shade({(x + dx) * per_pixel, (y + dy) * per_pixel});
    for (std::size_t channel = 0; channel < sums.size(); ++channel) sums[channel] += pixel >> (8 * channel) & 0xFFU;
  }
  constexpr std::uint32_t kPoints = kGrid * kGrid;
  return 0xFF000000U | sums[2] / kPoints << 16U | sums[1] / kPoints << 8U | sums[0] / kPoints;
}

// `shade` on a plane that is `plane_width` wide, as a bitmap of that size.
Bitmap Paint(double width, double height, double plane_width, const Shade& shade) {
  Bitmap bitmap(static_cast<int>(std::lround(width)), static_cast<int>(std::lround(height)), kFilm);
  const double per_pixel = plane_width / std::max(bitmap.Width(), 1);
  for (int y = 0; y < bitmap.Height(); ++y) {
    for (int x = 0; x < bitmap.Width(); ++x) bitmap.Set(x, y, MeanOf(shade, x, y, per_pixel));
  }
  return bitmap;
}

}  // namespace

Artwork IconArtwork(float side) {
  return [side](float scale) { return Paint(side * scale, side * scale, kIconSide, IconShade); };
}

Artwork FilmArtwork(float width, float height) {
  return [width, height](float scale) { return Paint(width * scale, height * scale, kFilmWidth, FilmShade); };
}

}  // namespace quorvale
