// Lines and pens.

#include "drawing.h"

#include <algorithm>

namespace {

void Lines(HDC dc, bool) {
  for (int i = 0; i < 10; ++i) {
    Pen(dc, PS_SOLID, 1 + i, RGB(25 * i, 0, 255 - 25 * i));
    MoveToEx(dc, 10 + i * 18, 10, nullptr);
    LineTo(dc, 20 + i * 18, 60);
  }
  Pen(dc, PS_SOLID, 5, RGB(0, 128, 0));
  const POINT zigzag[] = {{10, 130}, {30, 80}, {50, 130}, {70, 80}, {90, 130}, {110, 80}, {190, 140}};
  Polyline(dc, zigzag, 7);
  for (int i = 0; i < 30; ++i) SetPixel(dc, 120 + i * 2, 80 + i % 5, RGB(255, 0, 0));
}

void Pens(HDC dc, bool) {
  const int styles[] = {PS_SOLID, PS_DASH, PS_DOT, PS_DASHDOT, PS_DASHDOTDOT, PS_NULL, PS_INSIDEFRAME};
  for (int i = 0; i < 7; ++i) {
    SetBkMode(dc, i % 2 == 0 ? TRANSPARENT : OPAQUE);
    SetBkColor(dc, RGB(255, 255, 0));
    Pen(dc, styles[i], i == 6 ? 9 : 1, RGB(0, 0, 160));
    MoveToEx(dc, 10, 10 + i * 12, nullptr);
    LineTo(dc, 190, 10 + i * 12);
    Brush(dc, RGB(255, 200, 200));
    Rectangle(dc, 10 + i * 26, 100, 32 + i * 26, 140);
  }
}

void ExtendedPen(HDC dc, DWORD style, DWORD width, LOGBRUSH brush, const std::vector<DWORD>& dashes = {}) {
  Use(dc, CreatePen(PS_SOLID, static_cast<int>(width), brush.lbColor));
  std::vector<DWORD> record{0,
                            0,
                            0,
                            0,
                            style,
                            width,
                            brush.lbStyle,
                            brush.lbColor,
                            static_cast<DWORD>(brush.lbHatch),
                            static_cast<DWORD>(dashes.size())};
  record.insert(record.end(), dashes.begin(), dashes.end());
  ExtendedPens().push_back(record);
}

void GeometricPens(HDC dc, bool) {
  const DWORD caps[] = {PS_ENDCAP_ROUND, PS_ENDCAP_SQUARE, PS_ENDCAP_FLAT};
  const DWORD joins[] = {PS_JOIN_ROUND, PS_JOIN_BEVEL, PS_JOIN_MITER};
  const DWORD styles[] = {PS_DASH, PS_DOT, PS_DASHDOT};
  for (int i = 0; i < 3; ++i) {
    const LOGBRUSH brush{BS_SOLID, RGB(80 * i, 100, 200 - 60 * i), 0};
    ExtendedPen(dc, PS_GEOMETRIC | PS_SOLID | caps[i] | joins[i], 13, brush);
    const POINT hook[] = {{10 + i * 62, 65}, {10 + i * 62, 15}, {55 + i * 62, 15}};
    Polyline(dc, hook, 3);
    ExtendedPen(dc, PS_GEOMETRIC | styles[i] | PS_ENDCAP_FLAT, 7, brush);
    MoveToEx(dc, 10, 85 + i * 14, nullptr);
    LineTo(dc, 190, 85 + i * 14);
  }
  ExtendedPen(dc, PS_GEOMETRIC | PS_USERSTYLE | PS_ENDCAP_FLAT, 5, {BS_SOLID, RGB(200, 0, 0), 0}, {20, 5, 4, 5});
  MoveToEx(dc, 10, 128, nullptr);
  LineTo(dc, 190, 128);
  ExtendedPen(dc, PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_FLAT, 11, {BS_HATCHED, RGB(0, 0, 200), HS_DIAGCROSS});
  MoveToEx(dc, 10, 140, nullptr);
  LineTo(dc, 190, 140);
}

void DashTruth(HDC dc, int y, int width, const std::vector<int>& dashes) {
  std::size_t dash = 0;
  for (int x = 10; x < 190; x += dashes[dash++ % dashes.size()]) {
    if (dash % 2 != 0) continue;
    Rectangle(dc, x, y - width / 2, std::min(190, x + dashes[dash % dashes.size()]) + 1, y + width / 2 + 2);
  }
}

// Dashes, caps and joins as areas.
void GeometricPenTruth(HDC dc, bool) {
  const std::vector<int> dashes[] = {{21, 7}, {7, 7}, {21, 7, 7, 7}};
  for (int i = 0; i < 3; ++i) {
    const COLORREF colour = RGB(80 * i, 100, 200 - 60 * i);
    Brush(dc, colour);
    const int x = 10 + i * 62;
    const int beyond = i == 1 ? 6 : 0;
    if (i == 0) {
      Pen(dc, PS_SOLID, 13, colour);
      const POINT hook[] = {{x, 65}, {x, 15}, {x + 45, 15}};
      Polyline(dc, hook, 3);
    }
    Use(dc, GetStockObject(NULL_PEN));
    if (i > 0) {
      const POINT bevel[] = {{x - 6, 65 + beyond}, {x - 6, 15},           {x, 9},
                             {x + 45 + beyond, 9}, {x + 45 + beyond, 22}, {x + 7, 22},
                             {x + 7, 65 + beyond}};
      const POINT miter[] = {{x - 6, 65}, {x - 6, 9}, {x + 45, 9}, {x + 45, 22}, {x + 7, 22}, {x + 7, 65}};
      Polygon(dc, i == 1 ? bevel : miter, i == 1 ? 7 : 6);
    }
    DashTruth(dc, 85 + i * 14, 7, dashes[i]);
  }
  Brush(dc, RGB(200, 0, 0));
  DashTruth(dc, 128, 5, {20, 5, 4, 5});
  Use(dc, CreateHatchBrush(HS_DIAGCROSS, RGB(0, 0, 200)));
  DashTruth(dc, 140, 11, {180});
}

void Curves(HDC dc, bool) {
  Pen(dc, PS_SOLID, 3, RGB(128, 0, 128));
  const POINT curve[] = {{10, 70}, {40, -20}, {80, 160}, {110, 70}, {140, 10}, {170, 130}, {190, 20}};
  PolyBezier(dc, curve, 7);
  Pen(dc, PS_SOLID, 1, RGB(0, 0, 0));
  MoveToEx(dc, 10, 100, nullptr);
  PolyBezierTo(dc, curve + 1, 3);
  const POINT line[] = {{120, 140}, {190, 140}};
  PolylineTo(dc, line, 2);
  const POINT drawn[] = {{20, 110}, {60, 110}, {60, 145}, {100, 110}, {120, 150}, {140, 100}, {180, 120}};
  const BYTE types[] = {PT_MOVETO,   PT_LINETO,  PT_LINETO | PT_CLOSEFIGURE, PT_MOVETO, PT_BEZIERTO,
                        PT_BEZIERTO, PT_BEZIERTO};
  PolyDraw(dc, drawn, types, 7);
  const POINT several[] = {{5, 5}, {50, 5}, {5, 10}, {50, 12}, {60, 20}};
  const DWORD counts[] = {2, 3};
  PolyPolyline(dc, several, counts, 2);
}

constexpr Family kFamilies[] = {
    {"lines", Lines, true, true},
    {"pens", Pens, true, true, Pens},
    {"geometric_pens", GeometricPens, false, true, GeometricPenTruth},
    {"curves", Curves, false, true},
};

}  // namespace

std::span<const Family> LineFamilies() { return kFamilies; }

std::vector<std::vector<DWORD>>& ExtendedPens() {
  static std::vector<std::vector<DWORD>> pens;
  return pens;
}
