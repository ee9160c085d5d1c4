#include "landscape/scenery.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "picture/canvas.h"
#include "picture/noise.h"

namespace quorvale::samples {
namespace {

// One branch with its twigs. Low branches sag under their weight and rise again at the tip.
class Branch {
 public:
  Branch(Canvas& canvas, const ConiferLook& look, Dice& dice) : canvas_(canvas), look_(look), dice_(dice) {}

  void Draw(Point root, float reach, float sag, float thickness) {
    const float length = std::abs(reach);
    const int twigs = std::clamp(static_cast<int>(length / 4), 3, 34);
    const bool snowy = dice_.Unit() < look_.snow_share;
    const float towards_light = 0.5F + 0.5F * (reach > 0 ? 1.0F : -1.0F) * look_.light_side;
    const float spacing = length / static_cast<float>(twigs);
    Point last = root;
    for (int i = 1; i <= twigs; ++i) {
      const float t = static_cast<float>(i) / static_cast<float>(twigs);
      const Point here = {root.x + reach * t + dice_.Between(-0.2F, 0.2F) * spacing,
                          root.y + sag * length * (t - 0.5F * t * t) + dice_.Between(-0.3F, 0.3F) * spacing};
      const float light = towards_light * t * dice_.Unit();
      const Colour colour = Mix(look_.shade, look_.lit, light * light);
      Stroke(canvas_, last, here, thickness * (1.5F - t), thickness * (1.4F - t), colour);
      // Twigs point outwards, one a little up and two hanging.
      const float twig = length * (0.20F * std::sqrt(1 - t) + 0.06F);
      for (const float droop : {-0.25F, 0.45F, 0.95F}) {
        const float size = twig * dice_.Between(0.4F, 1.1F) * (droop < 0 ? 0.6F : 1.0F);
        const float outward = reach / length * size * dice_.Between(0.3F, 0.9F);
        Stroke(canvas_, here, {here.x + outward, here.y + droop * size}, thickness, thickness * 0.3F, colour);
      }
      if (snowy && dice_.Unit() < 0.8F)
        Stroke(canvas_, {last.x, last.y - thickness * 0.6F}, {here.x, here.y - thickness * 0.6F}, thickness * 1.5F,
               thickness * 1.4F, look_.snow * dice_.Between(0.5F, 1.0F));
      last = here;
    }
  }

 private:
  Canvas& canvas_;
  const ConiferLook& look_;
  Dice& dice_;
};

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

void DrawConifer(Canvas& canvas, Point foot, float height, const ConiferLook& look, std::uint32_t seed) {
  Dice dice(seed);
  const float lean = dice.Between(-0.02F, 0.02F) * height, spread = dice.Between(0.13F, 0.20F);
  const Point top = {foot.x + lean, foot.y - height};
  Stroke(canvas, foot, top, height * 0.02F, height * 0.002F, look.shade);
  Branch branch(canvas, look, dice);
  const int branches = std::clamp(static_cast<int>(height / 1.6F), 24, 330);
  const float thickness = std::max(1.1F, height * 0.0021F);
  // From the bottom up, so that upper branches hang over lower ones. No whorls: at random heights, on both sides,
  // some reaching out and some towards us, a tree looks grown.
  for (int i = branches; i >= 1; --i) {
    const float t = std::pow((static_cast<float>(i) - dice.Unit()) / static_cast<float>(branches), 0.9F);
    const Point root = {Mix(top.x, foot.x, t * 0.95F), Mix(top.y, foot.y, t * 0.95F)};
    const float outline = (0.04F + 0.96F * std::pow(t, 0.85F)) * (1 - 0.3F * Smooth(0.85F, 1, t));
    const float towards_us = 0.35F + 0.65F * std::sqrt(dice.Unit());
    const float reach = height * spread * outline * towards_us * dice.Between(0.7F, 1.15F);
    const float side = dice.Unit() < 0.5F ? -1.0F : 1.0F;
    const float sag = Mix(-0.5F, 0.75F, Smooth(0, 0.5F, t)) + dice.Between(-0.2F, 0.25F);
    branch.Draw(root, side * reach, sag, thickness);
  }
}

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
