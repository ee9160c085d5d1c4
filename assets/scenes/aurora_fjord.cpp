#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "landscape/aurora.h"
#include "landscape/relief.h"
#include "landscape/scenery.h"
#include "landscape/water.h"
#include "picture/canvas.h"
#include "picture/develop.h"
#include "picture/noise.h"
#include "picture/view.h"
#include "scenes/scenes.h"

namespace quorvale::samples {
namespace {

constexpr View kView = {1920, 1480, 2600, 0.0150F};
constexpr int kShoreRow = 1489;

constexpr Colour kMoonlight = {0.070F, 0.088F, 0.135F};
constexpr Colour kAuroraLight = {0.006F, 0.030F, 0.020F};
constexpr Colour kLamp = {1.6F, 0.75F, 0.22F};
const Vector kToMoon = Unit({0.85F, 0.30F, -0.25F});

constexpr float kHutX = -0.047F, kHutZ = 0.105F, kHutWidth = 0.0055F;

// Steep walls on both sides of a winding arm of the sea.
float Walls(float x, float z, int octaves) {
  const float bent_x = x + 0.3F * Noise(x * 0.7F, z * 0.7F, 211), bent_z = z + 0.3F * Noise(x * 0.7F, z * 0.7F, 212);
  const float middle = 0.9F * std::sin(z * 0.33F + 0.6F) - 0.45F;
  const float width = 0.95F + 0.05F * z;
  const float off = std::abs(bent_x - middle) - width;
  const float end = Smooth(10.5F, 13.5F, bent_z);
  const float rise = std::max(Smooth(0, 2.6F, off), 0.40F * end);
  const float crests = Ridges(bent_x * 0.5F, bent_z * 0.5F, octaves, 221);
  return rise * (0.35F + 2.0F * crests) * (0.8F + 0.35F * Noise(x * 0.4F, z * 0.4F, 213)) +
         0.10F * Smooth(-0.15F, 0.5F, std::max(off, end - 0.3F)) * (0.4F + crests) - 0.004F;
}

// The bank on which the viewer and the hut stand.
float Bank(float x, float z) {
  const float edge = 0.082F - 0.95F * x + 0.016F * Fractal(x * 22, z * 22, 3, 231);
  const float drifts = 0.0016F * Fractal(x * 45 + 3, z * 30, 6, 232) + 0.0005F * Ridges(x * 160, z * 90, 4, 233);
  const float height =
      -0.003F + (0.0132F + drifts) * Smooth(edge, edge - 0.06F, z) + 0.0012F * Smooth(-0.02F, -0.06F, x);
  // Under water it falls off, out of sight.
  return height > 0 ? height : 300 * height;
}

Colour Stars(int x, int y) {
  constexpr int kCell = 24;
  const int cell_x = x / kCell, cell_y = y / kCell;
  // Many faint ones, a few bright ones.
  const float rank = HashUnit(cell_x, cell_y, 241);
  if (rank < 0.45F) return {};
  const float brightness = 0.04F + 2.6F * std::pow((rank - 0.45F) / 0.55F, 14.0F);
  const float radius = 0.75F + 0.35F * std::sqrt(brightness);
  const float px = static_cast<float>(cell_x * kCell) + 5 + 14 * HashUnit(cell_x, cell_y, 242);
  const float py = static_cast<float>(cell_y * kCell) + 5 + 14 * HashUnit(cell_x, cell_y, 243);
  const float dx = static_cast<float>(x) + 0.5F - px, dy = static_cast<float>(y) + 0.5F - py;
  const float heat = HashUnit(cell_x, cell_y, 244);
  return Mix(Colour{1.0F, 0.80F, 0.60F}, Colour{0.65F, 0.80F, 1.0F}, heat) *
         (brightness * std::exp(-(dx * dx + dy * dy) / (radius * radius)));
}

Colour NightSky(Vector direction) {
  const Colour high = {0.006F, 0.012F, 0.030F}, low = {0.012F, 0.036F, 0.046F};
  // A river of stars too faint to be seen one by one.
  const float across = direction.x * 0.8F + direction.y * 0.9F - 0.25F;
  const float band = std::exp(-across * across * 22);
  const float dust = Smooth(-0.35F, 0.5F, Fractal(direction.x * 7, direction.y * 7, 6, 251));
  return Mix(high, low, std::exp(-direction.y * 6)) + Colour{0.020F, 0.019F, 0.026F} * (band * dust);
}

void PaintSky(Canvas& canvas) {
  const Canvas aurora = RenderAurora(kView, canvas.Width(), kShoreRow);
  canvas.Fill(0, kShoreRow, [&](int x, int y) {
    const float column = static_cast<float>(x) + 0.5F, row = static_cast<float>(y) + 0.5F;
    const Vector direction = kView.Direction(column, row);
    const float clear_air = Smooth(0, 0.12F, direction.y);
    return NightSky(direction) + Stars(x, y) * clear_air +
           aurora.Sample(column / kAuroraShrinkX, row / kAuroraShrinkY) * (0.3F + 0.7F * clear_air);
  });
}

Colour SnowLight(const GroundSpot& spot, float rough) {
  const float moon = std::max(Dot(spot.normal, kToMoon) + 0.3F * rough, 0.0F);
  return kMoonlight * moon + kAuroraLight * (0.4F + 0.6F * spot.normal.y + 0.2F * rough);
}

void DrawWalls(Canvas& canvas) {
  const auto shade = [](const GroundSpot& spot) {
    const Vector& at = spot.place;
    const float patches = Fractal(at.x * 4, at.z * 4 + at.y * 3, 5, 261);
    const float rough = Fractal((at.x + at.z) * 26, at.y * 30 + at.z * 9, 4, 262);
    const float snow = Smooth(0.34F, 0.56F, spot.normal.y + 0.25F * patches + 0.1F * rough);
    const float wood = Smooth(0.5F, 0.15F, at.y + 0.3F * patches) *
                       Smooth(-0.25F, 0.25F, Fractal(at.x * 60, at.z * 60 + at.y * 90, 4, 263) + patches);
    const Colour bare = Mix(Colour{0.07F, 0.07F, 0.075F} * (1 + 0.7F * rough), {0.02F, 0.03F, 0.03F}, wood);
    const Colour ground = Mix(bare, {0.75F, 0.80F, 0.88F}, snow * (1 - 0.75F * wood));
    const Colour haze = {0.012F, 0.036F, 0.042F};
    return Mix(haze, ground * SnowLight(spot, rough * (1 - 0.7F * snow)), std::exp(-at.z * 0.05F));
  };
  DrawRelief(
      canvas, kView, {0.9F, 22, 1200}, kShoreRow, [](float x, float z) { return Walls(x, z, 8); }, shade);
}

Point OnBank(float x, float z) { return {kView.Column(x, z), kView.Row(Bank(x, z), z)}; }

void DrawBank(Canvas& canvas) {
  const Point hut_foot = OnBank(kHutX, kHutZ);
  const auto shade = [&](const GroundSpot& spot) {
    const Vector& at = spot.place;
    const float grain = Fractal(at.x * 900, at.z * 500, 4, 271);
    const Colour snow = Colour{0.78F, 0.83F, 0.90F} * SnowLight(spot, 0.25F * grain);
    // The lamp's light falls out of the windows onto the snow, placed by where one sees it: below the hut.
    const float aside = (kView.Column(at.x, at.z) - hut_foot.x - 130) / 190;
    const float below = (kView.Row(at.y, at.z) - hut_foot.y) / 75;
    const float lamp = Smooth(-0.1F, 0.1F, below) * std::exp(-aside * aside - below * below);
    const float sparkle = HashUnit(static_cast<int>(at.x * 90000), static_cast<int>(at.z * 90000), 272);
    return snow + kLamp * (0.13F * lamp * (1 + 0.5F * grain)) + kMoonlight * (sparkle > 0.9985F ? 1.5F : 0.0F);
  };
  DrawRelief(canvas, kView, {0.006F, 0.32F, 800}, static_cast<float>(canvas.Height()), Bank, shade);
}

struct Planting {
  float x, z, height;  // kilometres
};
constexpr std::array<Planting, 13> kTrees = {{{-0.100F, 0.160F, 0.015F},
                                              {-0.088F, 0.150F, 0.019F},
                                              {-0.079F, 0.142F, 0.013F},
                                              {-0.070F, 0.134F, 0.017F},
                                              {-0.0615F, 0.126F, 0.0125F},
                                              {-0.096F, 0.130F, 0.020F},
                                              {-0.083F, 0.122F, 0.0150F},
                                              {-0.0500F, 0.117F, 0.0100F},
                                              {-0.0310F, 0.100F, 0.0075F},
                                              {-0.0690F, 0.104F, 0.0205F},
                                              {-0.0610F, 0.092F, 0.0090F},
                                              {-0.0375F, 0.053F, 0.0205F},
                                              {0.0280F, 0.041F, 0.0130F}}};

// The hut and the wood around it, back to front.
void DrawHamlet(Canvas& canvas) {
  const ConiferLook look = {{0.0035F, 0.0065F, 0.0075F}, {0.016F, 0.026F, 0.030F}, {0.085F, 0.135F, 0.160F}, 0.6F, 1};
  std::uint32_t seed = 280;
  bool hut_stands = false;
  for (const Planting& tree : kTrees) {
    if (tree.z < kHutZ && !hut_stands) {
      hut_stands = true;
      DrawHut(canvas, OnBank(kHutX, kHutZ), kHutWidth / kHutZ * kView.focal,
              {{0.030F, 0.022F, 0.018F}, {0.10F, 0.15F, 0.18F}, kLamp});
    }
    Point foot = OnBank(tree.x, tree.z);
    foot.y += 0.0004F / tree.z * kView.focal;
    DrawConifer(canvas, foot, tree.height / tree.z * kView.focal, look, ++seed);
  }
}

}  // namespace

Scene RenderAuroraFjord() {
  Scene scene = {Canvas(kSceneWidth, kSceneHeight),
                 {.exposure = 2.2F, .contrast = 0.5F, .grain = 1.6F, .vignette = 0.3F}};
  Canvas& canvas = scene.canvas;
  PaintSky(canvas);
  DrawWalls(canvas);
  DrawWater(canvas, kView, kShoreRow, {{0.003F, 0.008F, 0.010F}, 0.0016F, 0.030F});
  DrawBank(canvas);
  DrawHamlet(canvas);
  AddGlow(canvas, 0.25F, 0.35F, 160);
  return scene;
}

}  // namespace quorvale::samples
