#include "config/artwork.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <span>
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
Bitmap PaintShade(double width, double height, double plane_width, const Shade& shade) {
  Bitmap bitmap(static_cast<int>(std::lround(width)), static_cast<int>(std::lround(height)), kFilm);
  const double per_pixel = plane_width / std::max(bitmap.Width(), 1);
  for (int y = 0; y < bitmap.Height(); ++y) {
    for (int x = 0; x < bitmap.Width(); ++x) bitmap.Set(x, y, MeanOf(shade, x, y, per_pixel));
  }
  return bitmap;
}

// The monitors: boxes in a few flat colours.

constexpr Pixel kOpaque = 0xFF000000;
constexpr Pixel kClear = 0;
constexpr Pixel kInk = kOpaque;
constexpr Pixel kPaper = kOpaque | 0xFFFFFF;
constexpr Pixel kSilver = kOpaque | 0xC0C0C0;
constexpr Pixel kGrey = kOpaque | 0x808080;
constexpr Pixel kNavy = kOpaque | 0x000080;
constexpr Pixel kTeal = kOpaque | 0x008080;
constexpr Pixel kGreen = kOpaque | 0x008000;
constexpr Pixel kLime = kOpaque | 0x00FF00;
constexpr Pixel kYellow = kOpaque | 0xFFFF00;

// A box with round corners, in the toolkit's pixels.
struct Shape {
  float left;
  float top;
  float right;
  float bottom;
  float radius;
  Pixel colour;
};

// Painted in this order. The frame of the play lists begins 6 pixels above the bitmap's lower edge, so the
// foot ends above that.
constexpr Shape kMonitor[] = {
    {74, 148, 115, 158, 0, kGrey},      // the neck
    {84, 148, 105, 158, 0, kSilver},    //
    {46, 155, 143, 164, 4, kGrey},      // the foot
    {47, 155, 142, 162, 3, kPaper},     //
    {48, 157, 142, 162, 3, kSilver},    //
    {2, 0, 187, 151, 8, kGrey},         // the case: shade, light, face
    {2, 0, 185, 149, 8, kPaper},        //
    {4, 2, 185, 149, 6, kSilver},       //
    {13, 13, 176, 137, 4, kPaper},      // the rim of the screen, lit from the other side
    {13, 13, 175, 136, 4, kGrey},       //
    {17, 17, 175, 136, 2, kSilver},     //
    {17, 17, 172, 133, 0, kGrey},       //
    {18, 18, 171, 132, 0, kInk},        // the screen
    {24, 141, 44, 145, 1, kGrey},       // the maker's plate
    {25, 142, 44, 145, 1, kPaper},      //
    {112, 141, 118, 145, 1, kGrey},     // knobs
    {124, 141, 130, 145, 1, kGrey},     //
    {136, 141, 142, 145, 1, kGrey},     //
    {154, 140, 168, 146, 2, kGrey},     // the lamp
    {155, 141, 167, 145, 1, kGreen},    //
    {157, 142, 162, 144, 0.5F, kLime},  //
};

constexpr float kMonitorIconSize = 32;

constexpr Shape kMonitorIcon[] = {
    {11, 24, 21, 28, 0, kGrey},     // the foot
    {7, 27, 25, 30, 1, kGrey},      //
    {1, 2, 31, 25, 3, kGrey},       // the case
    {1, 2, 30, 24, 3, kPaper},      //
    {2, 3, 30, 24, 2, kSilver},     //
    {4, 5, 28, 21, 1, kInk},        // the screen: half an old picture, half a new one
    {5, 6, 16, 20, 0, kTeal},       //
    {7, 8, 11, 12, 2, kYellow},     //
    {5, 15, 16, 20, 0, kGreen},     //
    {17, 6, 27, 20, 0, kNavy},      //
    {21, 9, 25, 13, 2, kPaper},     //
    {16, 6, 17, 20, 0, kPaper},     //
    {25, 22, 28, 23, 0.5F, kLime},  //
};

bool Holds(const Shape& shape, float x, float y) {
  if (x < shape.left || x >= shape.right || y < shape.top || y >= shape.bottom) return false;
  const float dx = std::max({shape.left + shape.radius - x, x - (shape.right - shape.radius), 0.0F});
  const float dy = std::max({shape.top + shape.radius - y, y - (shape.bottom - shape.radius), 0.0F});
  return dx * dx + dy * dy <= shape.radius * shape.radius;
}

// Not anti-aliased, to use only the given colours. `one_colour` replaces them all.
Bitmap PaintShapes(float width, float height, float scale, Pixel background, std::span<const Shape> shapes,
                   std::optional<Pixel> one_colour = std::nullopt) {
  Bitmap bitmap(static_cast<int>(std::lround(width * scale)), static_cast<int>(std::lround(height * scale)),
                background);
  for (int y = 0; y < bitmap.Height(); ++y) {
    for (int x = 0; x < bitmap.Width(); ++x) {
      const float across = (static_cast<float>(x) + 0.5F) / scale;
      const float down = (static_cast<float>(y) + 0.5F) / scale;
      const auto top = std::find_if(shapes.rbegin(), shapes.rend(),
                                    [across, down](const Shape& shape) { return Holds(shape, across, down); });
      if (top != shapes.rend()) bitmap.Set(x, y, one_colour.value_or(top->colour));
    }
  }
  return bitmap;
}

}  // namespace

Artwork IconArtwork(float side) {
  return [side](float scale) { return PaintShade(side * scale, side * scale, kIconSide, IconShade); };
}

Artwork FilmArtwork(float width, float height) {
  return [width, height](float scale) { return PaintShade(width * scale, height * scale, kFilmWidth, FilmShade); };
}

Bitmap MonitorBitmap(float scale) { return PaintShapes(kMonitorWidth, kMonitorHeight, scale, kInk, kMonitor); }

Bitmap MonitorMask(float scale) { return PaintShapes(kMonitorWidth, kMonitorHeight, scale, kPaper, kMonitor, kInk); }

Bitmap MonitorOnBackground(float scale) {
  const Bitmap mask = MonitorMask(scale);
  Bitmap work(mask.Width(), mask.Height(), kClear);
  BitBlt(work, mask, RasterOperation::kSrcAnd);
  BitBlt(work, MonitorBitmap(scale), RasterOperation::kSrcInvert);
  // Raster operations know colours only.
  for (int y = 0; y < work.Height(); ++y) {
    for (int x = 0; x < work.Width(); ++x) {
      if (mask.At(x, y) == kInk) work.Set(x, y, work.At(x, y) | kOpaque);
    }
  }
  return work;
}

Bitmap ConfigIcon(float scale) { return PaintShapes(kMonitorIconSize, kMonitorIconSize, scale, kClear, kMonitorIcon); }

}  // namespace quorvale
