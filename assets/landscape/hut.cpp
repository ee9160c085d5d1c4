#include "landscape/hut.h"

#include <algorithm>
#include <array>
#include <vector>

#include "picture/brush.h"
#include "picture/canvas.h"
#include "picture/colour.h"

namespace quorvale::samples {
namespace {

// Draws in units of the front's width, up from its lower left corner.
class Builder {
 public:
  Builder(Canvas& canvas, Point foot, float size) : canvas_(canvas), foot_(foot), size_(size) {}

  void Shape(std::vector<Point> corners, Colour colour) const {
    for (Point& corner : corners) corner = Place(corner);
    FillShape(canvas_, corners, colour);
  }
  void Line(Point a, Point b, float width, Colour colour) const {
    Stroke(canvas_, Place(a), Place(b), width * size_, width * size_, colour);
  }
  void Window(Point corner, float width, float height, Colour light, Colour frame) const {
    const float right = corner.x + width, top = corner.y + height;
    Shape({{corner.x, top}, {right, top}, {right, corner.y}, corner}, light);
    // Panes are darker towards the top, where the lamp is not.
    Shape({{corner.x, top}, {right, top}, {right, top - height * 0.35F}, {corner.x, top - height * 0.35F}},
          light * 0.7F);
    Line({corner.x + width / 2, corner.y}, {corner.x + width / 2, top}, 0.012F, frame);
    Line({corner.x, corner.y + height * 0.55F}, {right, corner.y + height * 0.55F}, 0.012F, frame);
  }

 private:
  Point Place(Point p) const { return {foot_.x + p.x * size_, foot_.y - p.y * size_}; }

  Canvas& canvas_;
  Point foot_;
  float size_;
};

}  // namespace

void DrawHut(Canvas& canvas, Point foot, float size, const HutLook& look) {
  const Builder hut(canvas, foot, size);
  constexpr float kEaves = 0.52F, kRidge = 0.98F, kRight = 2.15F, kPlank = 0.075F;
  const Colour front = look.wood, side = look.wood * 0.7F, gap = look.wood * 0.45F;

  // The chimney stands behind the ridge, with snow on its top.
  hut.Shape({{1.28F, 1.22F}, {1.46F, 1.22F}, {1.46F, 0.8F}, {1.28F, 0.8F}}, look.wood * 0.6F);
  hut.Shape({{1.26F, 1.27F}, {1.48F, 1.27F}, {1.48F, 1.20F}, {1.26F, 1.20F}}, look.snow * 0.9F);
  // The long side and the roof over it, then the gable in front.
  hut.Shape({{1, kEaves}, {kRight, kEaves}, {kRight, 0.02F}, {1, -0.05F}}, side);
  for (int plank = 0; plank < 7; ++plank) {
    const float y = 0.04F + kPlank * static_cast<float>(plank);
    hut.Line({1, y}, {kRight, y + 0.02F}, 0.008F, gap);
  }
  hut.Shape({{0, kEaves}, {0.5F, kRidge}, {1, kEaves}, {1, -0.05F}, {0, -0.05F}}, front);
  for (int plank = 0; plank < 13; ++plank) {
    const float y = 0.02F + kPlank * static_cast<float>(plank);
    const float inset = std::max(0.0F, (y - kEaves) / (kRidge - kEaves) * 0.5F);
    hut.Line({inset, y}, {1 - inset, y}, 0.008F, gap);
  }
  hut.Window({0.16F, 0.16F}, 0.26F, 0.25F, look.window, look.wood * 0.3F);
  hut.Shape({{0.60F, 0.42F}, {0.84F, 0.42F}, {0.84F, -0.05F}, {0.60F, -0.05F}}, look.wood * 0.4F);
  hut.Window({1.30F, 0.17F}, 0.20F, 0.20F, look.window * 0.8F, look.wood * 0.3F);
  hut.Window({1.72F, 0.18F}, 0.19F, 0.19F, look.window * 0.7F, look.wood * 0.3F);
  // A thick blanket of snow: the far slope is the roof that we look upon.
  hut.Shape(
      {{0.5F, kRidge + 0.12F}, {1.72F, kRidge + 0.10F}, {kRight + 0.12F, kEaves + 0.02F}, {1.08F, kEaves - 0.02F}},
      look.snow);
  hut.Shape({{1.08F, kEaves + 0.06F},
             {kRight + 0.12F, kEaves + 0.08F},
             {kRight + 0.12F, kEaves - 0.01F},
             {1.08F, kEaves - 0.05F}},
            look.snow * 0.55F);
  hut.Shape({{0.5F, kRidge + 0.12F}, {1.09F, kEaves + 0.06F}, {1.09F, kEaves - 0.05F}, {0.5F, kRidge}},
            look.snow * 0.6F);
  hut.Shape({{-0.09F, kEaves + 0.06F}, {0.5F, kRidge + 0.12F}, {0.5F, kRidge}, {-0.09F, kEaves - 0.05F}},
            look.snow * 0.75F);
}

}  // namespace quorvale::samples
