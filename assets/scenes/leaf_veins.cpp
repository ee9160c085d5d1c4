#include "scenes/leaf_veins.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "picture/colour.h"
#include "picture/noise.h"

namespace quorvale::samples {
namespace {

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

}  // namespace

Vein Veins(LeafPlace at) {
  const float rib = std::abs(at.across + 0.0015F * Noise(at.along * 9, 0, 407));
  Vein vein = RidgeAt(rib, Mix(0.0200F, 0.0085F, Smooth(-0.8F, 1.0F, at.along)), 0.72F);
  vein = Stronger(vein, SideRibs(at));
  vein = Stronger(vein, Net(at, 15, 0.0021F, 0.50F, 411));
  vein = Stronger(vein, Net(at, 46, 0.0010F, 0.36F, 421));
  return Stronger(vein, Net(at, 120, 0.00055F, 0.24F, 431));
}

}  // namespace quorvale::samples
