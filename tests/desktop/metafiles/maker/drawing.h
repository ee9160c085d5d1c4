#pragma once

#include <windows.h>

#include <cmath>
#include <cstdint>
#include <span>
#include <vector>

constexpr int kWidth = 200;
constexpr int kHeight = 150;
using Draw = void (*)(HDC, bool emf);

// A picture for one family of records.
struct Family {
  const char* name;
  Draw draw;
  bool wmf;
  bool emf;
  // What Wine's players leave out is drawn on the sheet without a metafile between.
  Draw truth = nullptr;
};

// Made, and used from now on.
HGDIOBJ Use(HDC dc, HGDIOBJ object);
void Brush(HDC dc, COLORREF colour);
void Pen(HDC dc, int style, int width, COLORREF colour);

struct Bitmap {
  BITMAPINFOHEADER header{};
  RGBQUAD colours[256]{};
  std::vector<std::uint8_t> bits;
  const BITMAPINFO* Info() const { return reinterpret_cast<const BITMAPINFO*>(&header); }
};

// Corners that differ, a slant, and a border of one pixel.
Bitmap MakeBitmap(int width, int height, int depth);
void Stretch(HDC dc, int x, int y, int width, int height, const Bitmap& bitmap, DWORD op = SRCCOPY);
// A device context that holds the bitmap.
HDC BitmapDc(const Bitmap& bitmap);
// Stripes.
void Ground(HDC dc);

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

// By the files that hold them.
std::span<const Family> LineFamilies();
std::span<const Family> AreaFamilies();
std::span<const Family> ClipFamilies();
std::span<const Family> MappingFamilies();
std::span<const Family> TextFamilies();
std::span<const Family> BitmapFamilies();

// Wine writes a geometric pen as a plain one: these are the records to put in the places of those.
std::vector<std::vector<DWORD>>& ExtendedPens();
