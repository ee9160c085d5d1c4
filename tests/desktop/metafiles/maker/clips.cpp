// Paths, clipping, regions and drawing modes.

#include "drawing.h"

namespace {

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

constexpr Family kFamilies[] = {
    {"paths", Paths, false, true},
    {"clips", Clips, true, true},
    {"regions", Regions, true, true},
    {"modes", DrawingModes, true, true},
};

}  // namespace

std::span<const Family> ClipFamilies() { return kFamilies; }
