// Areas and brushes.

#include "drawing.h"

namespace {

void Brushes(HDC dc, bool) {
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

void Polygons(HDC dc, bool) {
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

void Boxes(HDC dc, bool) {
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

void Gradients(HDC dc, bool) {
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
void PaletteTruth(HDC dc, bool) {
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

void Palettes(HDC dc, bool) {
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

void Floods(HDC dc, bool) {
  Pen(dc, PS_SOLID, 3, RGB(0, 0, 0));
  Brush(dc, RGB(255, 255, 255));
  Ellipse(dc, 10, 10, 120, 110);
  Rectangle(dc, 60, 50, 190, 140);
  Brush(dc, RGB(0, 200, 0));
  ExtFloodFill(dc, 30, 60, RGB(0, 0, 0), FLOODFILLBORDER);
  Brush(dc, RGB(200, 0, 200));
  ExtFloodFill(dc, 150, 100, RGB(255, 255, 255), FLOODFILLSURFACE);
}

constexpr Family kFamilies[] = {
    {"brushes", Brushes, true, true, Brushes},
    {"polygons", Polygons, true, true},
    {"boxes", Boxes, true, true, Boxes},
    {"arcs", Arcs, true, true, Arcs},
    {"gradients", Gradients, false, true},
    {"palettes", Palettes, true, false, PaletteTruth},
    {"floods", Floods, true, true},
};

}  // namespace

std::span<const Family> AreaFamilies() { return kFamilies; }
