#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "picture/canvas.h"
#include "picture/develop.h"
#include "picture/noise.h"
#include "picture/view.h"
#include "scenes/scenes.h"

namespace quorvale::samples {
namespace {

// The leaf's own coordinates: `along` runs up its main rib, `across` from the rib to the side, both in units of the
// picture's height.
struct LeafPlace {
  float along, across;
};

struct Vein {
  float height;   // how far it stands out, 0 to 1
  float density;  // how much light it holds back, 0 to 1
};

Vein Stronger(Vein a, Vein b) { return {std::max(a.height, b.height), std::max(a.density, b.density)}; }

// A rounded ridge of half-width `width` at distance `away`.
Vein RidgeAt(float away, float width, float density) {
  const float t = away / width;
  if (t > 3) return {0, 0};
  return {std::exp(-t * t * 0.8F) * std::min(1.0F, width * 90), density * Smooth(1.15F, 0.55F, t)};
}

// Side ribs leave the main one in alternation and bend towards the tip.
Vein SideRibs(LeafPlace at) {
  constexpr float kSpacing = 0.155F;
  const float side = at.across > 0 ? 0.5F : 0.0F, off = std::abs(at.across);
  const float bend = at.along - 0.72F * off - 0.34F * off * off + 0.010F * Noise(at.along * 5, at.across * 7, 405);
  const float nearest = (bend / kSpacing + side) - std::round(bend / kSpacing + side);
  // The bent coordinate runs faster than the distance to the rib.
  const float steepness = std::sqrt(1 + (0.72F + 0.68F * off) * (0.72F + 0.68F * off));
  return RidgeAt(std::abs(nearest) * kSpacing / steepness, Mix(0.0064F, 0.0026F, Smooth(0, 0.7F, off)), 0.55F);
}

// Between the ribs veins close into a net, and within each mesh of it lies a finer one.
Vein Net(LeafPlace at, float meshes, float width, float density, std::uint32_t seed) {
  const float u = at.along * meshes + 0.35F * Noise(at.along * meshes * 0.8F, at.across * meshes * 0.8F, seed + 1);
  const float v = at.across * meshes + 0.35F * Noise(at.along * meshes * 0.8F, at.across * meshes * 0.8F, seed + 2);
  // Meshes lie along the side ribs, longer than wide.
  const float side = v > 0 ? 1.0F : -1.0F;
  const float turned_u = 0.81F * u - side * 0.58F * v, turned_v = 0.81F * v + side * 0.58F * u;
  return RidgeAt(CellBorder(turned_u * 1.25F, turned_v * 0.8F, seed) / meshes, width, density);
}

// The ribs and the nets of veins between them at one place.
Vein Veins(LeafPlace at) {
  const float rib = std::abs(at.across + 0.0015F * Noise(at.along * 9, 0, 407));
  Vein vein = RidgeAt(rib, Mix(0.0200F, 0.0085F, Smooth(-0.8F, 1.0F, at.along)), 0.72F);
  vein = Stronger(vein, SideRibs(at));
  vein = Stronger(vein, Net(at, 15, 0.0021F, 0.50F, 411));
  vein = Stronger(vein, Net(at, 46, 0.0010F, 0.36F, 421));
  return Stronger(vein, Net(at, 120, 0.00055F, 0.24F, 431));
}

constexpr float kUnit = kSceneHeight;

LeafPlace OnLeaf(float x, float y) {
  constexpr float kCos = 0.914F, kSin = 0.407F;  // the rib rises from the lower left to the upper right
  const float dx = (x - 1500) / kUnit, dy = (1330 - y) / kUnit;
  const float along = dx * kCos + dy * kSin;
  return {along, -dx * kSin + dy * kCos - 0.05F * along * along};
}

// The leaf by itself: the light of the low sun behind it, greener the longer its way through.
Colour LeafLight(float x, float y, float* height) {
  const LeafPlace at = OnLeaf(x, y);
  const Vein vein = Veins(at);
  const float mottle = Fractal(at.along * 9, at.across * 9, 5, 441);
  const float cells = Noise(at.along * 420, at.across * 420, 442);
  // Each panel between two side ribs bulges a little.
  const float bulge = 0.5F + 0.5F * Noise(at.along * 6.5F, at.across * 6.5F, 443);
  *height = 0.0030F * vein.height + 0.0008F * cells * (1 - vein.height) + 0.012F * bulge;

  const float sun_x = (x - 2750) / kUnit, sun_y = (y - 520) / kUnit;
  const float sun = 0.20F + 1.25F * std::exp(-(sun_x * sun_x + sun_y * sun_y) * 1.9F);
  const float thickness = 1 + 0.35F * mottle + 0.10F * cells + 0.25F * bulge;
  const Colour blade = {std::exp(-1.05F * thickness), std::exp(-0.42F * thickness), std::exp(-3.1F * thickness)};
  const Colour rib = {0.80F, 0.86F, 0.30F};
  // Young and old parts: yellow seams along the larger veins, darker green between.
  Colour through = blade * (1.15F - 0.2F * bulge);
  through = Mix(through, through * rib * 0.62F, vein.density);
  through += Colour{0.10F, 0.09F, 0.008F} * (vein.density > 0.5F ? (vein.density - 0.5F) * 2.4F : 0.0F);
  return through * (sun * 1.35F);
}

struct Drop {
  float x, y, radius;  // pixels
};

// Drops keep a distance, since those that touch run together.
std::vector<Drop> LetDewFall() {
  Dice dice(451);
  std::vector<Drop> drops = {{1240, 900, 205}, {2280, 1500, 150}, {2960, 760, 118}, {720, 1640, 96}};
  for (int i = 0; i < 2600; ++i) {
    const float size = dice.Unit();
    const Drop drop = {dice.Between(-40, kSceneWidth + 40), dice.Between(-40, kSceneHeight + 40),
                       7 + 14 * dice.Unit() + 62 * std::pow(size, 9.0F)};
    const bool free = std::ranges::none_of(drops, [&](const Drop& other) {
      const float dx = drop.x - other.x, dy = drop.y - other.y, apart = drop.radius + other.radius * 1.12F + 8;
      return dx * dx + dy * dy < apart * apart;
    });
    // Dew settles in patches.
    if (free && Noise(drop.x / 420, drop.y / 420, 452) > -0.12F - size * 0.3F) drops.push_back(drop);
  }
  return drops;
}

// A drop is a lens: it gathers the light from the sun's side into a bright spot on the far one, shows the leaf
// beneath it larger, and mirrors the sky as a small highlight.
class DewPainter {
 public:
  DewPainter(Canvas& canvas, const Canvas& leaf) : canvas_(canvas), leaf_(leaf) {}

  void Paint(const Drop& drop) {
    // Shadow and the light gathered beyond it reach further than the drop itself.
    const float reach = drop.radius * 1.9F;
    for (int y = static_cast<int>(drop.y - reach); y <= static_cast<int>(drop.y + reach); ++y)
      for (int x = static_cast<int>(drop.x - reach); x <= static_cast<int>(drop.x + reach); ++x)
        if (x >= 0 && y >= 0 && x < canvas_.Width() && y < canvas_.Height()) PaintPixel(drop, x, y);
  }

 private:
  // Screen direction from which the sun stands, and how much of a drop's outline is uneven.
  static constexpr float kSunX = 0.72F, kSunY = -0.69F, kUneven = 0.045F;

  void PaintPixel(const Drop& drop, int x, int y) {
    const float u = (static_cast<float>(x) + 0.5F - drop.x) / drop.radius;
    const float v = (static_cast<float>(y) + 0.5F - drop.y) / drop.radius;
    const float uneven = 1 + kUneven * Noise(u * 0.9F + drop.x, v * 0.9F + drop.y, 461);
    const float r = std::sqrt(u * u + v * v) * uneven;
    Colour& pixel = canvas_.At(x, y);
    if (r > 1) {
      const float behind_x = u + 0.42F * kSunX, behind_y = v + 0.42F * kSunY;
      const float behind = std::sqrt(behind_x * behind_x + behind_y * behind_y);
      pixel *= 1 - 0.55F * Smooth(1.30F, 0.75F, behind) - 0.25F * Smooth(1.16F, 1.0F, r);
      if (r > 1 + 1.5F / drop.radius) return;
    }
    const float edge = Clamp01((1 - r) * drop.radius + 0.5F);
    pixel = Mix(pixel, Seen(drop, u, v, std::min(r, 1.0F)), edge);
  }

  Colour Seen(const Drop& drop, float u, float v, float r) const {
    const float dome = std::sqrt(std::max(0.0F, 1 - r * r));
    const float enlarged = 0.52F + 0.42F * r * r;
    const Colour below = leaf_.Sample(drop.x + u * drop.radius * enlarged, drop.y + v * drop.radius * enlarged);
    const float from_sun = -(u * kSunX + v * kSunY);  // 1 at the rim away from the sun
    Colour seen = below * Mix(0.45F, 1.55F, Smooth(-0.9F, 0.9F, from_sun));
    // The gathered light, a crescent along the far rim.
    const float spot_x = u + 0.50F * kSunX, spot_y = v + 0.50F * kSunY;
    seen += Colour{1.15F, 1.35F, 0.42F} * (0.9F * std::exp(-(spot_x * spot_x + spot_y * spot_y) * 5.0F));
    seen *= 1 - 0.55F * Smooth(0.80F, 1.0F, r) * Smooth(0.7F, -0.6F, from_sun);
    // The sky in the flat outer ring, the sun itself as a point with a soft window beside it.
    const float mirror = 0.02F + 0.5F * std::pow(1 - dome, 4.0F);
    seen += Colour{0.55F, 0.70F, 0.85F} * (mirror * Smooth(0.4F, -0.9F, v) * 0.7F);
    const float glint_x = u - 0.42F * kSunX, glint_y = v - 0.42F * kSunY;
    const float glint = std::sqrt(glint_x * glint_x + glint_y * glint_y);
    seen += Colour{6.5F, 6.2F, 5.4F} * Smooth(0.125F, 0.075F, glint);
    seen += Colour{0.5F, 0.5F, 0.45F} * Smooth(0.30F, 0.0F, glint);
    return seen;
  }

  Canvas& canvas_;
  const Canvas& leaf_;
};

// The leaf's relief in the light that comes from the sky above it.
void AddSheen(Canvas& canvas, const Canvas& heights) {
  canvas.Fill(0, canvas.Height(), [&](int x, int y) {
    const auto height = [&](int i, int j) {
      return heights.At(std::clamp(i, 0, canvas.Width() - 1), std::clamp(j, 0, canvas.Height() - 1)).r;
    };
    const float slope_x = (height(x + 1, y) - height(x - 1, y)) * kUnit / 2;
    const float slope_y = (height(x, y + 1) - height(x, y - 1)) * kUnit / 2;
    const Vector normal = Unit({-slope_x, -slope_y, 1});
    const float facing = Dot(normal, Unit({0.5F, -0.55F, 0.67F}));
    const float gloss = std::pow(std::max(facing, 0.0F), 14.0F);
    return canvas.At(x, y) * (0.55F + 0.62F * std::max(facing, 0.0F)) + Colour{0.10F, 0.125F, 0.13F} * (gloss * 0.55F);
  });
}

}  // namespace

Scene RenderDewLeaf() {
  Scene scene = {Canvas(kSceneWidth, kSceneHeight),
                 {.exposure = 1.15F, .contrast = 0.6F, .grain = 1.0F, .vignette = 0.45F}};
  Canvas& canvas = scene.canvas;
  {
    Canvas heights(kSceneWidth, kSceneHeight);
    canvas.Fill(0, canvas.Height(), [&](int x, int y) {
      return LeafLight(static_cast<float>(x) + 0.5F, static_cast<float>(y) + 0.5F, &heights.At(x, y).r);
    });
    AddSheen(canvas, heights);
  }
  const Canvas dry = canvas;
  DewPainter painter(canvas, dry);
  for (const Drop& drop : LetDewFall()) painter.Paint(drop);
  AddGlow(canvas, 1.2F, 0.35F, 120);
  return scene;
}

}  // namespace quorvale::samples
