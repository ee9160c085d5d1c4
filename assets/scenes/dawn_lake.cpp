#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

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

constexpr View kView = {1920, 1300, 3700, 0.004F};
constexpr int kShoreRow = 1306;
constexpr float kNear = 2.4F, kFar = 24;

constexpr Colour kSunlight = {3.6F, 1.65F, 0.70F};
constexpr Colour kSkylight = {0.17F, 0.23F, 0.38F};

Vector SunPlace() { return Unit({-0.50F, 0.075F, 1}); }
Vector SunOnSlopes() { return Unit({-1, 0.22F, 0.05F}); }

struct Peak {
  float x, z, height, width;
};
constexpr std::array<Peak, 7> kPeaks = {{{1.1F, 12.5F, 3.1F, 2.6F},
                                         {-1.7F, 16.0F, 2.7F, 2.0F},
                                         {4.9F, 11.0F, 2.1F, 1.7F},
                                         {-6.2F, 14.5F, 3.0F, 2.4F},
                                         {3.9F, 18.0F, 3.4F, 2.2F},
                                         {-3.6F, 9.0F, 1.1F, 1.3F},
                                         {8.0F, 15.0F, 3.2F, 2.4F}}};

float Ground(float x, float z, int octaves) {
  const float bent_x = x + 0.35F * Noise(x * 0.6F, z * 0.6F, 11), bent_z = z + 0.35F * Noise(x * 0.6F, z * 0.6F, 12);
  float massif = 0;
  for (const Peak& peak : kPeaks) {
    const float dx = bent_x - peak.x, dz = bent_z - peak.z;
    const float away = std::sqrt(dx * dx + dz * dz) / peak.width;
    if (away > 3.2F) continue;
    massif = std::max(massif, peak.height * std::exp(-1.15F * away * std::sqrt(0.45F + away)));
  }
  const float crests = Ridges(bent_x * 0.42F, bent_z * 0.42F, octaves, 21);
  const float hills =
      Smooth(2.5F, 5.5F, z + 0.5F * Noise(x * 1.1F, 3, 13)) * (0.12F + 0.30F * Smooth(0.2F, 3, std::abs(x)));
  return massif * (0.52F + 0.72F * crests) * Smooth(3, 8, z) + hills * (0.35F + 1.1F * crests) - 0.012F +
         0.02F * Smooth(2.5F, 2.9F, z + 0.3F * Noise(x * 2, 5, 14));
}

Colour ClearSky(Vector direction) {
  const float up = std::max(direction.y, 0.0F);
  const float towards_sun = std::max(Dot(direction, SunPlace()), 0.0F);
  const Colour zenith = {0.075F, 0.16F, 0.36F}, middle = {0.36F, 0.44F, 0.56F}, low = {0.95F, 0.58F, 0.38F};
  Colour sky = Mix(middle, zenith, Smooth(0.05F, 0.42F, up));
  sky = Mix(sky, low, std::exp(-up * 9) * (0.35F + 0.65F * std::pow(towards_sun, 3.0F)));
  sky += Colour{1.30F, 0.62F, 0.24F} * (0.55F * std::pow(towards_sun, 14.0F));
  sky += Colour{2.2F, 1.25F, 0.55F} * (0.8F * std::pow(towards_sun, 120.0F));
  sky += Colour{14, 9.5F, 5.0F} * (1.0F * std::pow(towards_sun, 3500.0F));
  return sky;
}

float CloudDensity(float x, float z) {
  const float bend = Fractal(x * 0.11F, z * 0.11F, 3, 41);
  const float streaks = Fractal(x * 0.16F + bend * 1.4F, z * 0.42F + bend * 0.7F, 6, 42);
  return Smooth(0.02F, 0.62F, streaks + 0.45F * Noise(x * 0.05F, z * 0.09F, 43));
}

Colour Sky(Vector direction) {
  const Colour clear = ClearSky(direction);
  if (direction.y < 0.015F) return clear;
  const float x = direction.x / direction.y * 3, z = direction.z / direction.y * 3;
  const float density = CloudDensity(x, z) * Smooth(0.015F, 0.12F, direction.y);
  if (density <= 0) return clear;
  // A cloud is bright where little of it stands between us and the sun.
  const float shaded = CloudDensity(x - 0.45F, z + 0.9F);
  const float towards_sun = std::max(Dot(direction, SunPlace()), 0.0F);
  const Colour fire = Colour{1.9F, 0.80F, 0.42F} * (0.35F + 1.1F * std::pow(towards_sun, 6.0F));
  const Colour dusk = {0.30F, 0.27F, 0.36F};
  return Mix(clear, Mix(fire, dusk, Clamp01(0.15F + 1.1F * shaded - 0.25F * density)), density * 0.85F);
}

// The air between us and a place: blue haze above, mist in the valleys.
Colour ThroughAir(Colour colour, Vector place) {
  const Vector direction = Unit(place);
  const float towards_sun = std::max(Dot(direction, SunPlace()), 0.0F);
  const float height = std::max(place.y, 0.001F);
  constexpr float kMistDepth = 0.16F;
  const float in_mist = kMistDepth * (1 - std::exp(-height / kMistDepth)) / height;
  const float patches = 0.75F + 0.9F * Fractal(place.x * 0.5F, place.z * 0.25F + place.y * 4, 3, 51);
  const float thickness = place.z * (0.021F + 0.16F * in_mist * in_mist * patches);
  const Colour haze = Mix(Colour{0.34F, 0.42F, 0.56F}, Colour{1.5F, 0.86F, 0.48F}, std::pow(towards_sun, 8.0F) * 0.9F);
  return Mix(haze, colour, std::exp(-thickness));
}

void DrawMountains(Canvas& canvas) {
  const SunShadow sun({-14, 14, kNear, kFar}, 0.20F, [](float x, float z) { return Ground(x, z, 7); });
  const Vector to_sun = SunOnSlopes();
  const auto shade = [&](const GroundSpot& spot) {
    const Vector& at = spot.place;
    const float patches = Fractal(at.x * 3, at.z * 3 + at.y * 2, 5, 31);
    const float strata = Noise(at.x * 1.5F, at.y * 26 + 2 * patches, 32);
    const Colour rock = Colour{0.115F, 0.10F, 0.095F} * (1 + 0.35F * strata + 0.5F * patches);
    const Colour forest = Colour{0.020F, 0.032F, 0.020F} * (1 + 0.8F * Noise(at.x * 30, at.z * 30, 33));
    const float tree_line = Smooth(1.0F, 0.7F, at.y + 0.35F * patches) * Smooth(0.45F, 0.7F, spot.normal.y);
    const float snow =
        Smooth(0.85F, 1.25F, at.y + 0.55F * patches) * Smooth(0.40F, 0.62F, spot.normal.y + 0.25F * patches);
    const Colour ground = Mix(Mix(rock, forest, tree_line), {0.80F, 0.82F, 0.86F}, snow);
    const float rough = Fractal((at.x + at.z) * 22, at.y * 34 + at.z * 9, 4, 34) * Mix(1.5F, 0.35F, snow);
    const float direct = std::max(Dot(spot.normal, to_sun) + 0.35F * rough, 0.0F) * sun.Lit(at.x, at.y, at.z);
    const Colour light = kSunlight * direct + kSkylight * ((0.35F + 0.65F * spot.normal.y) * (1 + 0.5F * rough));
    return ThroughAir(ground * light, at);
  };
  DrawRelief(
      canvas, kView, {kNear, kFar, 1500}, kShoreRow, [](float x, float z) { return Ground(x, z, 8); }, shade);
}

// The wood on the far shore, back to front.
void DrawFarShore(Canvas& canvas) {
  Dice dice(61);
  constexpr int kTrees = 1100;
  for (int i = 0; i < kTrees; ++i) {
    const float z = Mix(4.2F, 2.75F, static_cast<float>(i) / kTrees);
    const float x = dice.Between(-0.54F, 0.54F) * z;
    const float height = Ground(x, z, 9);
    const float size = dice.Between(0.012F, 0.034F) * kView.focal / z;
    if (height < 0.002F || Noise(x * 2.2F, z * 2.2F, 62) < -0.25F) continue;
    const Vector place = {x, height + 0.012F, z};
    const Colour shade = ThroughAir({0.012F, 0.020F, 0.016F}, place);
    const Colour lit = ThroughAir({0.10F, 0.075F, 0.035F}, place);
    DrawConifer(canvas, {kView.Column(x, z), kView.Row(height, z) + 2}, size, {shade, lit, {}, 0, -1},
                static_cast<std::uint32_t>(1000 + i));
  }
}

// Mist lies on the water and thins out upwards.
void DrawMist(Canvas& canvas) {
  const auto top = static_cast<int>(kView.horizon_row) - 150, bottom = static_cast<int>(kView.horizon_row) + 130;
  canvas.Fill(top, bottom, [&](int x, int y) {
    const float u = static_cast<float>(x) / 900, above = kShoreRow - static_cast<float>(y);
    const float wisps = 0.5F + Fractal(u * 1.2F, static_cast<float>(y) / 70, 5, 71);
    const float depth = above > 0 ? 55 * (0.5F + wisps) : 45.0F;
    const float density = 0.5F * std::exp(-std::abs(above) / depth) * Clamp01(0.25F + wisps) *
                          Smooth(0, 40, static_cast<float>(y - top)) * Smooth(0, 40, static_cast<float>(bottom - y));
    const float warmth = Smooth(2900, 100, static_cast<float>(x));
    const Colour mist = Mix(Colour{0.40F, 0.46F, 0.57F}, Colour{1.35F, 0.82F, 0.52F}, warmth * warmth);
    return Mix(canvas.At(x, y), mist, density);
  });
}

struct Planting {
  float x, y, height;
};
constexpr std::array<Planting, 11> kForeground = {{{330, 2230, 1130},
                                                   {3500, 2220, 980},
                                                   {620, 2260, 760},
                                                   {3240, 2240, 620},
                                                   {120, 2260, 1640},
                                                   {3740, 2300, 1500},
                                                   {470, 2330, 980},
                                                   {-60, 2300, 1250},
                                                   {3600, 2330, 860},
                                                   {800, 2290, 420},
                                                   {3080, 2280, 380}}};

void DrawForeground(Canvas& canvas) {
  const ConiferLook look = {{0.006F, 0.008F, 0.008F}, {0.20F, 0.12F, 0.05F}, {}, 0, -1};
  std::uint32_t seed = 80;
  for (const Planting& tree : kForeground) DrawConifer(canvas, {tree.x, tree.y}, tree.height, look, ++seed);
}

}  // namespace

Scene RenderDawnLake() {
  Scene scene = {Canvas(kSceneWidth, kSceneHeight),
                 {.exposure = 1.25F, .contrast = 0.5F, .grain = 1.2F, .vignette = 0.25F}};
  Canvas& canvas = scene.canvas;
  canvas.Fill(0, kShoreRow, [](int x, int y) {
    return Sky(kView.Direction(static_cast<float>(x) + 0.5F, static_cast<float>(y) + 0.5F));
  });
  DrawMountains(canvas);
  DrawFarShore(canvas);
  DrawWater(canvas, kView, kShoreRow, {{0.020F, 0.045F, 0.055F}, 0.0012F, 0.035F});
  DrawMist(canvas);
  AddGlow(canvas, 0.9F, 0.25F, 400);
  DrawForeground(canvas);
  return scene;
}

}  // namespace quorvale::samples
