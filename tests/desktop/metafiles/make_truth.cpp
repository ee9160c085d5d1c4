// Makes the metafiles of this directory with Windows' own functions, and the pictures that Windows' own
// players make of them. scripts/metafile-truth.sh builds and runs it.

#include <windows.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr int kWidth = 200;
constexpr int kHeight = 150;
using Draw = void (*)(HDC, bool emf);

struct Family {
  const char* name;
  Draw draw;
  bool wmf;
  bool emf;
  // What Wine's players leave out is drawn on the sheet without a metafile between.
  Draw truth = nullptr;
};

HGDIOBJ Use(HDC dc, HGDIOBJ object) {
  SelectObject(dc, object);
  return object;
}
void Brush(HDC dc, COLORREF colour) { Use(dc, CreateSolidBrush(colour)); }
void Pen(HDC dc, int style, int width, COLORREF colour) { Use(dc, CreatePen(style, width, colour)); }

struct Bitmap {
  BITMAPINFOHEADER header{};
  RGBQUAD colours[256]{};
  std::vector<std::uint8_t> bits;
  const BITMAPINFO* Info() const { return reinterpret_cast<const BITMAPINFO*>(&header); }
};

// Corners that differ, a slant, and a border of one pixel.
Bitmap MakeBitmap(int width, int height, int depth) {
  Bitmap bitmap;
  bitmap.header = {sizeof(BITMAPINFOHEADER), width, height, 1, static_cast<WORD>(depth), BI_RGB, 0, 0, 0, 0, 0};
  if (depth <= 8) bitmap.header.biClrUsed = 1U << depth;
  for (int i = 0; i < 256; ++i) {
    bitmap.colours[i] = depth == 1 ? (i == 0 ? RGBQUAD{0x20, 0x40, 0xC0, 0} : RGBQUAD{0xE0, 0xE0, 0x80, 0})
                        : depth == 4
                            ? RGBQUAD{static_cast<BYTE>(i * 17), static_cast<BYTE>(255 - i * 17), 90, 0}
                            : RGBQUAD{static_cast<BYTE>(i), static_cast<BYTE>(255 - i), static_cast<BYTE>(i / 2), 0};
  }
  const int stride = (width * depth + 31) / 32 * 4;
  bitmap.bits.assign(static_cast<std::size_t>(stride) * height, 0);
  bitmap.header.biSizeImage = static_cast<DWORD>(bitmap.bits.size());
  for (int y = 0; y < height; ++y) {
    std::uint8_t* row = bitmap.bits.data() + static_cast<std::size_t>(y) * stride;
    for (int x = 0; x < width; ++x) {
      const int value = (x * 255 / width + (x > y ? 60 : 0)) & 255;
      if (depth == 1) {
        row[x / 8] |= ((x / 4 + y / 4) % 2) << (7 - x % 8);
      } else if (depth == 4) {
        row[x / 2] |= (value >> 4) << (x % 2 == 0 ? 4 : 0);
      } else if (depth == 8) {
        row[x] = static_cast<std::uint8_t>(value);
      } else if (depth == 16) {
        const int pixel = (x * 31 / width) << 10 | (y * 31 / height) << 5 | (x > y ? 31 : 4);
        row[x * 2] = static_cast<std::uint8_t>(pixel);
        row[x * 2 + 1] = static_cast<std::uint8_t>(pixel >> 8);
      } else {
        std::uint8_t* pixel = row + x * depth / 8;
        pixel[0] = static_cast<std::uint8_t>(x > y ? 200 : 30);
        pixel[1] = static_cast<std::uint8_t>(y * 255 / height);
        pixel[2] = static_cast<std::uint8_t>(x * 255 / width);
        if (depth == 32) {
          const int alpha = x * 255 / width;
          pixel[3] = static_cast<std::uint8_t>(alpha);
        }
      }
    }
  }
  return bitmap;
}

void Stretch(HDC dc, int x, int y, int width, int height, const Bitmap& bitmap, DWORD op = SRCCOPY) {
  StretchDIBits(dc, x, y, width, height, 0, 0, bitmap.header.biWidth, std::abs(bitmap.header.biHeight),
                bitmap.bits.data(), bitmap.Info(), DIB_RGB_COLORS, op);
}

// A device context that holds the bitmap.
HDC BitmapDc(const Bitmap& bitmap) {
  HDC screen = GetDC(nullptr);
  HDC dc = CreateCompatibleDC(screen);
  void* bits = nullptr;
  HBITMAP made = CreateDIBSection(dc, bitmap.Info(), DIB_RGB_COLORS, &bits, nullptr, 0);
  memcpy(bits, bitmap.bits.data(), bitmap.bits.size());
  SelectObject(dc, made);
  ReleaseDC(nullptr, screen);
  return dc;
}

// What a bitmap shows where each of its points lands.
template <typename Back>
void DrawByPoints(HDC dc, const Bitmap& bitmap, Back back) {
  HDC source = BitmapDc(bitmap);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      const auto [u, v] = back(x + 0.5, y + 0.5);
      const int from_x = static_cast<int>(std::floor(u)), from_y = static_cast<int>(std::floor(v));
      if (from_x < 0 || from_y < 0 || from_x >= bitmap.header.biWidth || from_y >= bitmap.header.biHeight) continue;
      ::SetPixel(dc, x, y, GetPixel(source, from_x, from_y));
    }
  }
}

void Ground(HDC dc) {
  Use(dc, GetStockObject(NULL_PEN));
  for (int i = 0; i < 5; ++i) {
    Brush(dc, RGB(50 * i, 255 - 40 * i, 120 + 20 * i));
    Rectangle(dc, i * 40, 0, i * 40 + 41, 151);
  }
}

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

// Wine writes a geometric pen as a plain one: the right records are put in its place.
std::vector<std::vector<DWORD>> extended_pens;

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
  extended_pens.push_back(record);
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

void Paths(HDC dc, bool) {
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

void Regions(HDC dc, bool) {
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

void DrawingModes(HDC dc, bool) {
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

void Mapping(HDC dc, bool) {
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

void IsotropicMapping(HDC dc, bool) {
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

void FixedMappings(HDC dc, bool) {
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

// Some degrees of an ellipse, against the clock.
void AddArc(std::vector<POINT>& points, double x, double y, double across, double down, double from, double to) {
  for (double degree = from; degree <= to; degree += 1) {
    const double angle = degree * 3.14159265 / 180;
    // A hundred units to the pixel.
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

void WorldTransforms(HDC dc, bool) {
  StartWorld(dc);
  Pen(dc, PS_SOLID, 3, RGB(0, 0, 120));
  SetWorldTransform(dc, &kTurn);
  Rectangle(dc, 0, 0, 60, 40);
  Ellipse(dc, 10, 50, 70, 90);
  ModifyWorldTransform(dc, &kShear, MWT_LEFTMULTIPLY);
  RoundRect(dc, 20, 0, 60, 30, 10, 10);
  Pie(dc, 30, 50, 90, 100, 90, 75, 60, 50);
}

// Wine turns polygons, and no boxes.
void WorldTruth(HDC dc, bool) {
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

void TurnedBitmaps(HDC dc, bool) {
  SetGraphicsMode(dc, GM_ADVANCED);
  const XFORM turn{0.8F, 0.6F, -0.6F, 0.8F, 80, 10};
  SetWorldTransform(dc, &turn);
  Stretch(dc, 0, 0, 100, 80, MakeBitmap(20, 20, 24));
}

void TurnedBitmapTruth(HDC dc, bool) {
  DrawByPoints(dc, MakeBitmap(20, 20, 24), [](double x, double y) {
    const double across = (x - 80) * 0.8 + (y - 10) * 0.6;
    const double down = (y - 10) * 0.8 - (x - 80) * 0.6;
    return std::pair(across / 5, down / 4);
  });
}

void SaveAndRestore(HDC dc, bool) {
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

HFONT MakeFont(int height, int escapement, int weight, bool italic, const wchar_t* name, int width = 0) {
  return CreateFontW(height, width, escapement, escapement, weight, italic, FALSE, FALSE, DEFAULT_CHARSET, 0, 0,
                     ANTIALIASED_QUALITY, 0, name);
}

void Texts(HDC dc, bool) {
  SetBkMode(dc, TRANSPARENT);
  Use(dc, MakeFont(-18, 0, 400, false, L"Liberation Sans"));
  TextOutA(dc, 5, 2, "Plain text", 10);
  SetTextColor(dc, RGB(200, 0, 0));
  Use(dc, MakeFont(-18, 0, 700, true, L"Liberation Serif"));
  SetTextAlign(dc, TA_RIGHT | TA_BASELINE);
  TextOutA(dc, 195, 20, "Bold", 4);
  SetTextAlign(dc, TA_CENTER | TA_BOTTOM);
  SetBkMode(dc, OPAQUE);
  SetBkColor(dc, RGB(255, 255, 0));
  TextOutA(dc, 100, 60, "Centred", 7);
  SetBkMode(dc, TRANSPARENT);
  SetTextAlign(dc, TA_LEFT | TA_TOP);
  Use(dc, MakeFont(20, 300, 400, false, L"Liberation Sans"));
  SetTextColor(dc, RGB(0, 0, 200));
  TextOutA(dc, 10, 130, "Turned", 6);
  Use(dc, MakeFont(-14, 0, 400, false, L"Liberation Sans"));
  const INT widths[] = {20, 14, 26, 14, 20};
  const RECT box{90, 70, 190, 95};
  SetBkColor(dc, RGB(180, 255, 180));
  ExtTextOutA(dc, 95, 75, ETO_OPAQUE | ETO_CLIPPED, &box, "Apart", 5, widths);
  Use(dc, MakeFont(-20, 0, 400, false, L"Liberation Sans", 16));
  TextOutA(dc, 70, 105, "Wide", 4);
}

void WideTexts(HDC dc, bool) {
  SetBkMode(dc, TRANSPARENT);
  Use(dc, MakeFont(-24, 0, 400, false, L"DejaVu Sans"));
  TextOutW(dc, 5, 5, L"\u00C4rger \u03A9\u0416", 8);
  SetTextAlign(dc, TA_UPDATECP);
  MoveToEx(dc, 5, 50, nullptr);
  SetTextColor(dc, RGB(160, 0, 0));
  TextOutW(dc, 0, 0, L"one ", 4);
  SetTextColor(dc, RGB(0, 0, 160));
  TextOutW(dc, 0, 0, L"two", 3);
  LineTo(dc, 190, 70);
  SetTextAlign(dc, TA_LEFT);
  SetTextCharacterExtra(dc, 5);
  TextOutW(dc, 5, 100, L"spaced", 6);
}

void TextPaths(HDC dc, bool) {
  SetBkMode(dc, TRANSPARENT);
  Use(dc, MakeFont(-60, 0, 700, false, L"Liberation Sans"));
  Brush(dc, RGB(255, 200, 0));
  Pen(dc, PS_SOLID, 2, RGB(120, 0, 0));
  BeginPath(dc);
  TextOutA(dc, 10, 10, "Path", 4);
  EndPath(dc);
  StrokeAndFillPath(dc);
  BeginPath(dc);
  TextOutA(dc, 10, 75, "Clip", 4);
  EndPath(dc);
  SelectClipPath(dc, RGN_COPY);
  Ground(dc);
}

void Bitmaps(HDC dc, bool) {
  const int depths[] = {1, 4, 8, 16, 24, 32};
  for (int i = 0; i < 6; ++i) {
    const Bitmap bitmap = MakeBitmap(24, 20, depths[i]);
    Stretch(dc, 4 + i * 32, 4, 24, 20, bitmap);
    Stretch(dc, 4 + i * 32, 28, 29, 45, bitmap);
  }
  Bitmap down = MakeBitmap(24, 20, 24);
  down.header.biHeight = -20;
  Stretch(dc, 4, 80, 24, 20, down);
  const Bitmap bitmap = MakeBitmap(40, 30, 24);
  SetDIBitsToDevice(dc, 40, 80, 40, 30, 0, 0, 0, 30, bitmap.bits.data(), bitmap.Info(), DIB_RGB_COLORS);
  StretchDIBits(dc, 90, 80, 40, 30, 10, 5, 20, 15, bitmap.bits.data(), bitmap.Info(), DIB_RGB_COLORS, SRCCOPY);
  StretchDIBits(dc, 180, 80, -40, 30, 0, 0, 40, 30, bitmap.bits.data(), bitmap.Info(), DIB_RGB_COLORS, SRCCOPY);
  Bitmap runs;
  runs.header = {sizeof(BITMAPINFOHEADER), 16, 8, 1, 8, BI_RLE8, 0, 0, 0, 256, 0};
  for (int i = 0; i < 256; ++i) runs.colours[i] = {static_cast<BYTE>(i), static_cast<BYTE>(255 - i), 128, 0};
  for (int y = 0; y < 8; ++y) {
    const std::uint8_t row[] = {8, static_cast<std::uint8_t>(y * 30),       0, 3, 10, 100, 200, 0,
                                5, static_cast<std::uint8_t>(255 - y * 20), 0, 0};
    runs.bits.insert(runs.bits.end(), std::begin(row), std::end(row));
  }
  runs.bits.push_back(0);
  runs.bits.push_back(1);
  runs.bits.resize((runs.bits.size() + 3) / 4 * 4);
  runs.header.biSizeImage = static_cast<DWORD>(runs.bits.size());
  Stretch(dc, 4, 115, 48, 30, runs);
  const Bitmap large = MakeBitmap(160, 120, 24);
  Stretch(dc, 60, 115, 40, 30, large);
}

constexpr DWORD kOps[] = {SRCCOPY,    SRCPAINT, SRCAND,   SRCINVERT, SRCERASE,  NOTSRCCOPY, NOTSRCERASE, MERGECOPY,
                          MERGEPAINT, PATCOPY,  PATPAINT, PATINVERT, DSTINVERT, BLACKNESS,  WHITENESS,   0x00B8074A};

void RasterOps(HDC dc, bool) {
  Ground(dc);
  HDC source = BitmapDc(MakeBitmap(20, 28, 24));
  Brush(dc, RGB(200, 120, 40));
  for (int i = 0; i < 16; ++i) {
    BitBlt(dc, 4 + i % 8 * 24, 4 + i / 8 * 36, 20, 28, source, 0, 0, kOps[i]);
    StretchBlt(dc, 4 + i % 8 * 24, 78 + i / 8 * 36, 20, 32, source, 2, 3, 15, 20, kOps[i]);
  }
}

void DibRasterOps(HDC dc, bool) {
  Ground(dc);
  const Bitmap bitmap = MakeBitmap(20, 28, 24);
  Brush(dc, RGB(200, 120, 40));
  for (int i = 0; i < 16; ++i) Stretch(dc, 4 + i % 8 * 24, 4 + i / 8 * 72, 20, 60, bitmap, kOps[i]);
  PatBlt(dc, 180, 0, 20, 150, PATCOPY);
}

void Masks(HDC dc, bool) {
  Ground(dc);
  HDC source = BitmapDc(MakeBitmap(60, 60, 24));
  WORD rows[60 * 4];
  for (int i = 0; i < 240; ++i) rows[i] = i / 4 % 16 < 8 ? 0xF00F : 0x0FF0;
  HBITMAP mask = CreateBitmap(60, 60, 1, 1, rows);
  MaskBlt(dc, 5, 5, 60, 60, source, 0, 0, mask, 0, 0, MAKEROP4(SRCCOPY, 0x00AA0029));
  MaskBlt(dc, 70, 5, 60, 60, source, 0, 0, mask, 0, 0, MAKEROP4(SRCINVERT, SRCCOPY));
}

void Parallelograms(HDC dc, bool) {
  const POINT corners[] = {{20, 20}, {140, 50}, {60, 120}};
  PlgBlt(dc, corners, BitmapDc(MakeBitmap(60, 60, 24)), 0, 0, 60, 60, nullptr, 0, 0);
}

void ParallelogramTruth(HDC dc, bool) {
  DrawByPoints(dc, MakeBitmap(60, 60, 24), [](double x, double y) {
    const double whole = 120 * 100 - 40 * 30;
    const double across = ((x - 20) * 100 - (y - 20) * 40) / whole;
    const double down = ((y - 20) * 120 - (x - 20) * 30) / whole;
    return std::pair(across * 60, down * 60);
  });
}

void Blends(HDC dc, bool) {
  Ground(dc);
  Bitmap bitmap = MakeBitmap(40, 40, 32);
  HDC plain = BitmapDc(bitmap);
  AlphaBlend(dc, 5, 5, 80, 60, plain, 0, 0, 40, 40, {AC_SRC_OVER, 0, 128, 0});
  for (std::size_t i = 0; i < bitmap.bits.size(); i += 4) {
    for (std::size_t c = 0; c < 3; ++c) bitmap.bits[i + c] = bitmap.bits[i + c] * bitmap.bits[i + 3] / 255;
  }
  HDC source = BitmapDc(bitmap);
  AlphaBlend(dc, 100, 5, 80, 60, source, 0, 0, 40, 40, {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
  AlphaBlend(dc, 5, 80, 40, 40, source, 0, 0, 40, 40, {AC_SRC_OVER, 0, 100, AC_SRC_ALPHA});
  HDC keyed = BitmapDc(MakeBitmap(40, 40, 1));
  TransparentBlt(dc, 100, 80, 80, 60, keyed, 0, 0, 40, 40, RGB(0xC0, 0x40, 0x20));
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

// The same with colours instead of their numbers.
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
    {"lines", Lines, true, true},
    {"pens", Pens, true, true, Pens},
    {"geometric_pens", GeometricPens, false, true, GeometricPenTruth},
    {"brushes", Brushes, true, true, Brushes},
    {"polygons", Polygons, true, true},
    {"boxes", Boxes, true, true, Boxes},
    {"arcs", Arcs, true, true},
    {"curves", Curves, false, true},
    {"paths", Paths, false, true},
    {"clips", Clips, true, true},
    {"regions", Regions, true, true},
    {"modes", DrawingModes, true, true},
    {"mapping", Mapping, true, true},
    {"isotropic", IsotropicMapping, true, true},
    {"fixed_mappings", FixedMappings, false, true},
    {"world", WorldTransforms, false, true, WorldTruth},
    {"turned_bitmaps", TurnedBitmaps, false, true, TurnedBitmapTruth},
    {"saved", SaveAndRestore, true, true},
    {"texts", Texts, true, true},
    {"wide_texts", WideTexts, false, true},
    {"text_paths", TextPaths, false, true},
    {"bitmaps", Bitmaps, true, true},
    {"raster_ops", RasterOps, true, true, RasterOps},
    {"dib_raster_ops", DibRasterOps, true, true},
    {"masks", Masks, false, true, Masks},
    {"parallelograms", Parallelograms, false, true, ParallelogramTruth},
    {"blends", Blends, false, true, Blends},
    {"gradients", Gradients, false, true},
    {"palettes", Palettes, true, false, PaletteTruth},
    {"floods", Floods, true, true},
};

void Save(const std::string& path, const void* head, std::size_t head_size, const void* bytes, std::size_t size) {
  FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return;
  if (head_size > 0) std::fwrite(head, 1, head_size, file);
  std::fwrite(bytes, 1, size, file);
  std::fclose(file);
}

// A white sheet in memory.
struct Sheet {
  HDC dc = CreateCompatibleDC(nullptr);
  std::uint32_t* pixels = nullptr;

  Sheet() {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), kWidth, -kHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    SelectObject(dc, CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    pixels = static_cast<std::uint32_t*>(bits);
    for (int i = 0; i < kWidth * kHeight; ++i) pixels[i] = 0xFFFFFFFF;
  }

  void Save(const std::string& path) const {
    GdiFlush();
    std::vector<std::uint8_t> bytes;
    for (int i = 0; i < kWidth * kHeight; ++i) {
      for (const int shift : {16, 8, 0}) bytes.push_back(static_cast<std::uint8_t>(pixels[i] >> shift));
    }
    const std::string head = "P6\n200 150\n255\n";
    ::Save(path, head.data(), head.size(), bytes.data(), bytes.size());
  }
};

#pragma pack(push, 2)
struct Placeable {
  std::uint32_t key = 0x9AC6CDD7;
  std::uint16_t handle = 0;
  std::int16_t left = 0, top = 0, right = kWidth, bottom = kHeight;
  std::uint16_t inch = 96;
  std::uint32_t reserved = 0;
  std::uint16_t checksum = 0;
};
#pragma pack(pop)

// Puts the extended pens in the places of plain ones.
void PutExtendedPens(std::vector<std::uint8_t>& bytes) {
  std::vector<std::uint8_t> made;
  std::size_t next = 0;
  for (std::size_t at = 0; at + 8 <= bytes.size();) {
    DWORD head[3];
    memcpy(head, bytes.data() + at, sizeof(head));
    const DWORD size = head[1];
    if (head[0] == EMR_CREATEPEN && next < extended_pens.size()) {
      const std::vector<DWORD>& pen = extended_pens[next++];
      head[0] = EMR_EXTCREATEPEN;
      head[1] = static_cast<DWORD>(sizeof(head) + pen.size() * sizeof(DWORD));
      const auto append = [&](const void* data, std::size_t count) {
        made.insert(made.end(), static_cast<const std::uint8_t*>(data), static_cast<const std::uint8_t*>(data) + count);
      };
      append(head, sizeof(head));
      append(pen.data(), pen.size() * sizeof(DWORD));
    } else {
      made.insert(made.end(), bytes.begin() + at, bytes.begin() + at + size);
    }
    at += size;
  }
  const auto size = static_cast<DWORD>(made.size());
  memcpy(made.data() + offsetof(ENHMETAHEADER, nBytes), &size, sizeof(size));
  bytes = made;
  extended_pens.clear();
}

void MakeWmf(const Family& family) {
  HDC dc = CreateMetaFileA(nullptr);
  family.draw(dc, false);
  HMETAFILE made = CloseMetaFile(dc);
  std::vector<std::uint8_t> bytes(GetMetaFileBitsEx(made, 0, nullptr));
  GetMetaFileBitsEx(made, static_cast<UINT>(bytes.size()), bytes.data());
  Placeable head;
  const auto* words = reinterpret_cast<const std::uint16_t*>(&head);
  for (int i = 0; i < 10; ++i) head.checksum ^= words[i];
  Save(std::string(family.name) + ".wmf", &head, sizeof(head), bytes.data(), bytes.size());
  Sheet sheet;
  SetMapMode(sheet.dc, MM_ANISOTROPIC);
  SetWindowExtEx(sheet.dc, kWidth, kHeight, nullptr);
  SetViewportExtEx(sheet.dc, kWidth, kHeight, nullptr);
  if (family.truth == nullptr) {
    PlayMetaFile(sheet.dc, made);
  } else {
    family.truth(sheet.dc, false);
  }
  sheet.Save(std::string(family.name) + ".wmf.ppm");
}

void MakeEmf(const Family& family) {
  HDC screen = GetDC(nullptr);
  // The frame that is exactly the sheet, in hundredths of a millimetre.
  const int mm_x = GetDeviceCaps(screen, HORZSIZE), mm_y = GetDeviceCaps(screen, VERTSIZE);
  const int px_x = GetDeviceCaps(screen, HORZRES), px_y = GetDeviceCaps(screen, VERTRES);
  const RECT frame{0, 0, static_cast<LONG>(std::lround(100.0 * kWidth * mm_x / px_x)),
                   static_cast<LONG>(std::lround(100.0 * kHeight * mm_y / px_y))};
  HDC dc = CreateEnhMetaFileA(screen, nullptr, &frame, nullptr);
  family.draw(dc, true);
  HENHMETAFILE made = CloseEnhMetaFile(dc);
  std::vector<std::uint8_t> bytes(GetEnhMetaFileBits(made, 0, nullptr));
  GetEnhMetaFileBits(made, static_cast<UINT>(bytes.size()), bytes.data());
  if (!extended_pens.empty()) PutExtendedPens(bytes);
  Save(std::string(family.name) + ".emf", nullptr, 0, bytes.data(), bytes.size());
  Sheet sheet;
  const RECT box{0, 0, kWidth, kHeight};
  if (family.truth == nullptr) {
    PlayEnhMetaFile(sheet.dc, made, &box);
  } else {
    family.truth(sheet.dc, true);
  }
  sheet.Save(std::string(family.name) + ".emf.ppm");
}

}  // namespace

int main() {
  for (const Family& family : kFamilies) {
    if (family.wmf) MakeWmf(family);
    if (family.emf) MakeEmf(family);
  }
  return 0;
}
