// Lines, areas, paths and clipping.

#include "drawing.h"

#include <algorithm>

namespace {

// Lines and pens.

void Lines(HDC dc, bool /*emf*/) {
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

void Pens(HDC dc, bool /*emf*/) {
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
  std::vector<DWORD> record(4);
  record.insert(record.end(), {style, width, brush.lbStyle, brush.lbColor, static_cast<DWORD>(brush.lbHatch),
                               static_cast<DWORD>(dashes.size())});
  record.insert(record.end(), dashes.begin(), dashes.end());
  ExtendedPens().push_back(record);
}

void GeometricPens(HDC dc, bool /*emf*/) {
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
void GeometricPenTruth(HDC dc, bool /*emf*/) {
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

void Curves(HDC dc, bool /*emf*/) {
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

// Areas and brushes.

void Brushes(HDC dc, bool /*emf*/) {
  Pen(dc, PS_SOLID, 1, RGB(0, 0, 0));
  for (int i = 0; i < 6; ++i) {
    SetBkMode(dc, i < 3 ? OPAQUE : TRANSPARENT);
    SetBkColor(dc, RGB(255, 255, 160));
    Use(dc, CreateHatchBrush(i, RGB(200, 0, 0)));
    Rectangle(dc, 5 + i * 32, 5, 34 + i * 32, 45);
  }
  SetBkMode(dc, OPAQUE);
  const Bitmap eight = MakeBitmap(8, 8, 24);
  std::vector<std::uint8_t> packed(sizeof(BITMAPINFOHEADER) + eight.bits.size());
  memcpy(packed.data(), &eight.header, sizeof(BITMAPINFOHEADER));
  memcpy(packed.data() + sizeof(BITMAPINFOHEADER), eight.bits.data(), eight.bits.size());
  Use(dc, CreateDIBPatternBrushPt(packed.data(), DIB_RGB_COLORS));
  Rectangle(dc, 5, 55, 65, 95);
  const WORD rows[] = {0xAA, 0x55, 0xAA, 0x55, 0xF0, 0xF0, 0x0F, 0x0F};
  SetTextColor(dc, RGB(0, 0, 255));
  SetBkColor(dc, RGB(200, 255, 200));
  Use(dc, CreatePatternBrush(CreateBitmap(8, 8, 1, 1, rows)));
  Rectangle(dc, 70, 55, 130, 95);
  Use(dc, GetStockObject(LTGRAY_BRUSH));
  Rectangle(dc, 135, 55, 195, 95);
  Use(dc, GetStockObject(NULL_BRUSH));
  Rectangle(dc, 5, 100, 65, 145);
  Use(dc, GetStockObject(NULL_PEN));
  Brush(dc, RGB(10, 200, 100));
  Rectangle(dc, 70, 100, 130, 145);
  Rectangle(dc, 130, 100, 195, 145);
}

void Polygons(HDC dc, bool /*emf*/) {
  Pen(dc, PS_SOLID, 2, RGB(0, 0, 100));
  Brush(dc, RGB(255, 180, 0));
  for (int mode = 0; mode < 2; ++mode) {
    SetPolyFillMode(dc, mode == 0 ? ALTERNATE : WINDING);
    POINT star[5];
    for (int i = 0; i < 5; ++i) {
      star[i].x = static_cast<LONG>(50 + mode * 100 + 40 * std::sin(i * 2 * 2 * 3.14159265 / 5));
      star[i].y = static_cast<LONG>(40 - 35 * std::cos(i * 2 * 2 * 3.14159265 / 5));
    }
    Polygon(dc, star, 5);
    const int x = mode * 100;
    const POINT rings[] = {{x + 10, 85}, {x + 90, 85}, {x + 90, 145}, {x + 10, 145},
                           {x + 30, 95}, {x + 70, 95}, {x + 70, 135}, {x + 30, 135}};
    const INT counts[] = {4, 4};
    PolyPolygon(dc, rings, counts, 2);
  }
}

void Boxes(HDC dc, bool /*emf*/) {
  for (int i = 0; i < 4; ++i) {
    Pen(dc, PS_SOLID, i == 3 ? 6 : i + 1, RGB(0, 60 * i, 0));
    Brush(dc, RGB(255, 255 - 50 * i, 100));
    Rectangle(dc, 5 + i * 48, 5, 45 + i * 48, 45);
    Ellipse(dc, 5 + i * 48, 52, 45 + i * 48, 92);
    RoundRect(dc, 5 + i * 48, 100, 45 + i * 48, 145, 10 + i * 6, 20);
  }
}

void Arcs(HDC dc, bool emf) {
  Brush(dc, RGB(120, 200, 255));
  for (int i = 0; i < 4; ++i) {
    Pen(dc, PS_SOLID, 1 + i, RGB(150, 0, 60 * i));
    const int x = 5 + i * 48;
    const int to_x = i % 2 == 0 ? x + 40 : x;
    Arc(dc, x, 5, x + 42, 45, x + 21, 0, to_x, 40);
    Chord(dc, x, 52, x + 42, 92, x + 21, 50, to_x, 90);
    Pie(dc, x, 100, x + 42, 145, x + 42, 100 + i * 10, to_x, 150);
  }
  if (!emf) return;
  SetArcDirection(dc, AD_CLOCKWISE);
  Pen(dc, PS_SOLID, 1, RGB(255, 0, 0));
  Arc(dc, 10, 10, 60, 60, 60, 35, 35, 10);
  MoveToEx(dc, 100, 75, nullptr);
  ArcTo(dc, 90, 60, 150, 120, 150, 60, 90, 120);
  AngleArc(dc, 160, 70, 20, 30, 200);
}

void Gradients(HDC dc, bool /*emf*/) {
  TRIVERTEX corners[] = {{5, 5, 0xFF00, 0, 0, 0},         {95, 70, 0, 0, 0xFF00, 0},  {105, 5, 0xFF00, 0xFF00, 0, 0},
                         {195, 70, 0, 0x8000, 0x8000, 0}, {20, 145, 0xFF00, 0, 0, 0}, {100, 80, 0, 0xFF00, 0, 0},
                         {180, 145, 0, 0, 0xFF00, 0}};
  GRADIENT_RECT across{0, 1};
  GRADIENT_RECT down{2, 3};
  GRADIENT_TRIANGLE triangle{4, 5, 6};
  GradientFill(dc, corners, 7, &across, 1, GRADIENT_FILL_RECT_H);
  GradientFill(dc, corners, 7, &down, 1, GRADIENT_FILL_RECT_V);
  GradientFill(dc, corners, 7, &triangle, 1, GRADIENT_FILL_TRIANGLE);
}

COLORREF PaletteColour(int i) { return RGB(i * 36, 255 - i * 36, i * 10); }

// The same with colours instead of palette indices.
void PaletteTruth(HDC dc, bool /*emf*/) {
  for (int i = 0; i < 8; ++i) {
    Pen(dc, PS_SOLID, 1, RGB(0, 0, 0));
    Brush(dc, PaletteColour(i));
    Rectangle(dc, 4 + i * 24, 5, 26 + i * 24, 60);
  }
  Use(dc, GetStockObject(NULL_PEN));
  for (int y = 0; y < 16; ++y) {
    for (int x = 0; x < 16; ++x) {
      const int number = x % 2 == 0 ? x / 2 : y / 2;
      Brush(dc, PaletteColour(7 - number));
      Rectangle(dc, 20 + x * 4, 70 + (15 - y) * 4, 25 + x * 4, 75 + (15 - y) * 4);
    }
  }
}

void Palettes(HDC dc, bool /*emf*/) {
  struct {
    WORD version = 0x300;
    WORD count = 8;
    PALETTEENTRY entries[8]{};
  } palette;
  for (int i = 0; i < 8; ++i) {
    const COLORREF colour = PaletteColour(i);
    palette.entries[i] = {GetRValue(colour), GetGValue(colour), GetBValue(colour), 0};
  }
  SelectPalette(dc, CreatePalette(reinterpret_cast<const LOGPALETTE*>(&palette)), FALSE);
  RealizePalette(dc);
  for (int i = 0; i < 8; ++i) {
    Pen(dc, PS_SOLID, 1, PALETTERGB(0, 0, 0));
    Brush(dc, PALETTEINDEX(i));
    Rectangle(dc, 4 + i * 24, 5, 26 + i * 24, 60);
  }
  struct {
    BITMAPINFOHEADER header{sizeof(BITMAPINFOHEADER), 16, 16, 1, 4, BI_RGB, 128, 0, 0, 8, 0};
    WORD numbers[8] = {7, 6, 5, 4, 3, 2, 1, 0};
  } info;
  std::uint8_t bits[16 * 8];
  for (int i = 0; i < 128; ++i) bits[i] = static_cast<std::uint8_t>((i % 8) << 4 | (i / 16));
  StretchDIBits(dc, 20, 70, 64, 64, 0, 0, 16, 16, bits, reinterpret_cast<BITMAPINFO*>(&info), DIB_PAL_COLORS, SRCCOPY);
}

void Floods(HDC dc, bool /*emf*/) {
  Pen(dc, PS_SOLID, 3, RGB(0, 0, 0));
  Brush(dc, RGB(255, 255, 255));
  Ellipse(dc, 10, 10, 120, 110);
  Rectangle(dc, 60, 50, 190, 140);
  Brush(dc, RGB(0, 200, 0));
  ExtFloodFill(dc, 30, 60, RGB(0, 0, 0), FLOODFILLBORDER);
  Brush(dc, RGB(200, 0, 200));
  ExtFloodFill(dc, 150, 100, RGB(255, 255, 255), FLOODFILLSURFACE);
}

// Paths, clipping, regions and drawing modes.

void Paths(HDC dc, bool /*emf*/) {
  Brush(dc, RGB(255, 220, 0));
  Pen(dc, PS_SOLID, 3, RGB(0, 0, 200));
  for (int i = 0; i < 3; ++i) {
    BeginPath(dc);
    MoveToEx(dc, 10 + i * 62, 10, nullptr);
    LineTo(dc, 60 + i * 62, 10);
    LineTo(dc, 35 + i * 62, 60);
    CloseFigure(dc);
    Ellipse(dc, 25 + i * 62, 15, 46 + i * 62, 36);
    EndPath(dc);
    if (i == 0) FillPath(dc);
    if (i == 1) StrokePath(dc);
    if (i == 2) StrokeAndFillPath(dc);
  }
  SaveDC(dc);
  BeginPath(dc);
  Ellipse(dc, 10, 70, 100, 145);
  EndPath(dc);
  SelectClipPath(dc, RGN_COPY);
  for (int i = 0; i < 20; ++i) {
    MoveToEx(dc, i * 10, 65, nullptr);
    LineTo(dc, i * 10 - 40, 150);
  }
  RestoreDC(dc, -1);
  BeginPath(dc);
  MoveToEx(dc, 110, 75, nullptr);
  LineTo(dc, 180, 75);
  LineTo(dc, 150, 130);
  EndPath(dc);
  Pen(dc, PS_SOLID, 10, 0);
  WidenPath(dc);
  Brush(dc, RGB(200, 60, 60));
  SetPolyFillMode(dc, WINDING);
  FillPath(dc);
  // An open figure.
  Pen(dc, PS_SOLID, 3, RGB(0, 120, 0));
  BeginPath(dc);
  MoveToEx(dc, 176, 105, nullptr);
  LineTo(dc, 196, 105);
  LineTo(dc, 186, 145);
  EndPath(dc);
  StrokeAndFillPath(dc);
}

void Clips(HDC dc, bool emf) {
  SaveDC(dc);
  IntersectClipRect(dc, 20, 20, 180, 130);
  ExcludeClipRect(dc, 80, 50, 120, 100);
  Ground(dc);
  OffsetClipRgn(dc, 10, 5);
  Brush(dc, RGB(255, 0, 0));
  Ellipse(dc, 0, 0, 100, 75);
  RestoreDC(dc, -1);
  if (!emf) return;
  HRGN region = CreateEllipticRgn(100, 70, 195, 148);
  ExtSelectClipRgn(dc, region, RGN_COPY);
  HRGN other = CreateRectRgn(140, 90, 160, 120);
  ExtSelectClipRgn(dc, other, RGN_DIFF);
  Brush(dc, RGB(0, 0, 255));
  Rectangle(dc, 0, 0, 200, 150);
  SelectClipRgn(dc, nullptr);
  Rectangle(dc, 1, 140, 30, 149);
}

void Regions(HDC dc, bool /*emf*/) {
  HRGN round = CreateRoundRectRgn(10, 10, 90, 70, 20, 20);
  HRGN box = CreateRectRgn(50, 40, 120, 90);
  HRGN both = CreateRectRgn(0, 0, 1, 1);
  CombineRgn(both, round, box, RGN_XOR);
  FillRgn(dc, both, CreateSolidBrush(RGB(0, 160, 80)));
  HRGN ring = CreateEllipticRgn(120, 10, 190, 80);
  FrameRgn(dc, ring, CreateSolidBrush(RGB(200, 0, 0)), 4, 6);
  Brush(dc, RGB(90, 90, 220));
  HRGN low = CreateRectRgn(10, 100, 100, 140);
  PaintRgn(dc, low);
  HRGN over = CreateEllipticRgn(60, 60, 160, 145);
  InvertRgn(dc, over);
}

void DrawingModes(HDC dc, bool /*emf*/) {
  Ground(dc);
  for (int mode = 1; mode <= 16; ++mode) {
    SetROP2(dc, mode);
    const int x = 4 + (mode - 1) % 8 * 24;
    const int y = mode <= 8 ? 5 : 80;
    Pen(dc, PS_SOLID, 4, RGB(220, 60, 30));
    Brush(dc, RGB(30, 200, 240));
    Rectangle(dc, x, y, x + 30, y + 60);
  }
}

constexpr Family kFamilies[] = {
    {"lines", Lines, true, true},
    {"pens", Pens, true, true, Pens},
    {"geometric_pens", GeometricPens, false, true, GeometricPenTruth},
    {"curves", Curves, false, true},
    {"brushes", Brushes, true, true, Brushes},
    {"polygons", Polygons, true, true},
    {"boxes", Boxes, true, true, Boxes},
    {"arcs", Arcs, true, true, Arcs},
    {"gradients", Gradients, false, true},
    {"palettes", Palettes, true, false, PaletteTruth},
    {"floods", Floods, true, true},
    {"paths", Paths, false, true},
    {"clips", Clips, true, true},
    {"regions", Regions, true, true},
    {"modes", DrawingModes, true, true},
};

}  // namespace

std::span<const Family> ShapeFamilies() { return kFamilies; }

std::vector<std::vector<DWORD>>& ExtendedPens() {
  static std::vector<std::vector<DWORD>> pens;
  return pens;
}
