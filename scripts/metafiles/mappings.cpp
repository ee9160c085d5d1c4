// Mapping modes and world transforms.

#include "drawing.h"

#include <utility>

namespace {

void Mapping(HDC dc, bool /*emf*/) {
  Pen(dc, PS_SOLID, 0, RGB(0, 0, 0));
  SaveDC(dc);
  SetMapMode(dc, MM_ANISOTROPIC);
  SetWindowOrgEx(dc, -1000, -1000, nullptr);
  SetWindowExtEx(dc, 4000, 3000, nullptr);
  SetViewportOrgEx(dc, 10, 5, nullptr);
  SetViewportExtEx(dc, 120, 90, nullptr);
  Brush(dc, RGB(250, 150, 150));
  Rectangle(dc, -1000, -1000, 3000, 2000);
  Pen(dc, PS_SOLID, 100, RGB(0, 0, 250));
  Ellipse(dc, 0, 0, 2000, 1000);
  ScaleWindowExtEx(dc, 1, 2, 1, 2, nullptr);
  OffsetViewportOrgEx(dc, 60, 40, nullptr);
  Ellipse(dc, 0, 0, 800, 400);
  RestoreDC(dc, -1);
  Brush(dc, RGB(150, 250, 150));
  Rectangle(dc, 2, 130, 60, 148);
}

void IsotropicMapping(HDC dc, bool /*emf*/) {
  SetMapMode(dc, MM_ISOTROPIC);
  SetWindowExtEx(dc, 100, 100, nullptr);
  SetViewportExtEx(dc, 200, -150, nullptr);
  SetViewportOrgEx(dc, 20, 140, nullptr);
  Brush(dc, RGB(150, 250, 150));
  Pen(dc, PS_SOLID, 3, RGB(0, 0, 0));
  Rectangle(dc, 0, 0, 60, 60);
  Pie(dc, 20, 20, 80, 80, 80, 50, 50, 80);
  SetWindowExtEx(dc, 50, 200, nullptr);
  Rectangle(dc, 100, 100, 150, 120);
}

void FixedMappings(HDC dc, bool /*emf*/) {
  const int modes[] = {MM_LOMETRIC, MM_HIMETRIC, MM_LOENGLISH, MM_HIENGLISH, MM_TWIPS};
  const int sizes[] = {50, 500, 20, 200, 288};
  for (int i = 0; i < 5; ++i) {
    SetMapMode(dc, modes[i]);
    SetViewportOrgEx(dc, 10 + i * 36, 120, nullptr);
    Brush(dc, RGB(50 * i, 100, 255 - 50 * i));
    Pen(dc, PS_SOLID, sizes[i] / 10, RGB(0, 0, 0));
    Rectangle(dc, 0, 0, sizes[i], sizes[i] * 2);
  }
}

// An arc of an ellipse, counterclockwise, in degrees.
void AddArc(std::vector<POINT>& points, double x, double y, double across, double down, int from, int to) {
  for (int degree = from; degree <= to; ++degree) {
    const double angle = degree * 3.14159265 / 180;
    // A hundred units per pixel.
    points.push_back(
        {std::lround(100 * (x + across * std::cos(angle))), std::lround(100 * (y - down * std::sin(angle)))});
  }
}

void StartWorld(HDC dc) {
  SetGraphicsMode(dc, GM_ADVANCED);
  Brush(dc, RGB(250, 200, 100));
}

const XFORM kTurn{0.8F, 0.6F, -0.6F, 0.8F, 80, 10};
const XFORM kShear{1, 0, 0.5F, 1, 30, -20};

void WorldTransforms(HDC dc, bool /*emf*/) {
  StartWorld(dc);
  Pen(dc, PS_SOLID, 3, RGB(0, 0, 120));
  SetWorldTransform(dc, &kTurn);
  Rectangle(dc, 0, 0, 60, 40);
  Ellipse(dc, 10, 50, 70, 90);
  ModifyWorldTransform(dc, &kShear, MWT_LEFTMULTIPLY);
  RoundRect(dc, 20, 0, 60, 30, 10, 10);
  Pie(dc, 30, 50, 90, 100, 90, 75, 60, 50);
}

// Wine applies rotation to polygons but not to boxes.
void WorldTruth(HDC dc, bool /*emf*/) {
  StartWorld(dc);
  Pen(dc, PS_SOLID, 300, RGB(0, 0, 120));
  const XFORM fine{0.01F, 0, 0, 0.01F, 0, 0};
  SetWorldTransform(dc, &kTurn);
  ModifyWorldTransform(dc, &fine, MWT_LEFTMULTIPLY);
  const POINT box[] = {{0, 0}, {6000, 0}, {6000, 4000}, {0, 4000}};
  Polygon(dc, box, 4);
  std::vector<POINT> points;
  AddArc(points, 40, 70, 30, 20, 0, 360);
  Polygon(dc, points.data(), static_cast<int>(points.size()));
  SetWorldTransform(dc, &kTurn);
  ModifyWorldTransform(dc, &kShear, MWT_LEFTMULTIPLY);
  ModifyWorldTransform(dc, &fine, MWT_LEFTMULTIPLY);
  points.clear();
  AddArc(points, 55, 5, 5, 5, 0, 90);
  AddArc(points, 25, 5, 5, 5, 90, 180);
  AddArc(points, 25, 25, 5, 5, 180, 270);
  AddArc(points, 55, 25, 5, 5, 270, 360);
  Polygon(dc, points.data(), static_cast<int>(points.size()));
  points = {{6000, 7500}};
  AddArc(points, 60, 75, 30, 25, 0, 90);
  Polygon(dc, points.data(), static_cast<int>(points.size()));
}

void TurnedBitmaps(HDC dc, bool /*emf*/) {
  SetGraphicsMode(dc, GM_ADVANCED);
  const XFORM turn{0.8F, 0.6F, -0.6F, 0.8F, 80, 10};
  SetWorldTransform(dc, &turn);
  Stretch(dc, 0, 0, 100, 80, MakeBitmap(20, 20, 24));
}

void TurnedBitmapTruth(HDC dc, bool /*emf*/) {
  DrawByPoints(dc, MakeBitmap(20, 20, 24), [](double x, double y) {
    const double across = (x - 80) * 0.8 + (y - 10) * 0.6;
    const double down = (y - 10) * 0.8 - (x - 80) * 0.6;
    return std::pair(across / 5, down / 4);
  });
}

void SaveAndRestore(HDC dc, bool /*emf*/) {
  Brush(dc, RGB(255, 0, 0));
  Pen(dc, PS_SOLID, 3, RGB(0, 0, 0));
  SaveDC(dc);
  Brush(dc, RGB(0, 255, 0));
  SaveDC(dc);
  Brush(dc, RGB(0, 0, 255));
  IntersectClipRect(dc, 0, 0, 50, 50);
  Rectangle(dc, 5, 5, 60, 60);
  RestoreDC(dc, -1);
  Rectangle(dc, 70, 5, 120, 60);
  SaveDC(dc);
  RestoreDC(dc, 1);
  Rectangle(dc, 130, 5, 190, 60);
}

constexpr Family kFamilies[] = {
    {"mapping", Mapping, true, true},
    {"isotropic", IsotropicMapping, true, true},
    {"fixed_mappings", FixedMappings, false, true},
    {"world", WorldTransforms, false, true, WorldTruth},
    {"turned_bitmaps", TurnedBitmaps, false, true, TurnedBitmapTruth},
    {"saved", SaveAndRestore, true, true},
};

}  // namespace

std::span<const Family> MappingFamilies() { return kFamilies; }
