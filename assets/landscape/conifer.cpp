#include "landscape/conifer.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "picture/brush.h"
#include "picture/canvas.h"
#include "picture/colour.h"
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

}  // namespace quorvale::samples
