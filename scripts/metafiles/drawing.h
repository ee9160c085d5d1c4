#pragma once

#include <windows.h>

#include <cmath>
#include <cstdint>
#include <span>
#include <vector>

constexpr int kWidth = 200;
constexpr int kHeight = 150;
using Draw = void (*)(HDC, bool emf);

// A picture for one group of records.
struct Family {
  const char* name = "";
  Draw draw = nullptr;
  bool wmf = false;
  bool emf = false;
  // Wine's players skip these records, so the truth is drawn directly.
  Draw truth = nullptr;
};

// Selects an object; Brush and Pen make it too.
HGDIOBJ Use(HDC dc, HGDIOBJ object);
void Brush(HDC dc, COLORREF colour);
void Pen(HDC dc, int style, int width, COLORREF colour);

struct Bitmap {
  BITMAPINFOHEADER header{};
  RGBQUAD colours[256]{};
  std::vector<std::uint8_t> bits;
  const BITMAPINFO* Info() const { return reinterpret_cast<const BITMAPINFO*>(&header); }
};

// Four different corners, a diagonal, and a border of one pixel.
Bitmap MakeBitmap(int width, int height, int depth);
void Stretch(HDC dc, int x, int y, int width, int height, const Bitmap& bitmap, DWORD op = SRCCOPY);
// A device context with the bitmap selected.
HDC BitmapDc(const Bitmap& bitmap);
// Stripes.
void Ground(HDC dc);

// Draws a bitmap pixel by pixel. `back` maps a pixel of the target to one of the bitmap.
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

// A group for each file.
std::span<const Family> ShapeFamilies();
std::span<const Family> MappingFamilies();
std::span<const Family> TextAndBitmapFamilies();

// Wine records a geometric pen as a plain one. These are the records to replace those with.
std::vector<std::vector<DWORD>>& ExtendedPens();
