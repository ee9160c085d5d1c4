// Texts and bitmaps.

#include "drawing.h"

#include <algorithm>
#include <utility>

namespace {

// Texts.

HFONT MakeFont(int height, int escapement, int weight, bool italic, const wchar_t* name, int width = 0) {
  return CreateFontW(height, width, escapement, escapement, weight, italic, FALSE, FALSE, DEFAULT_CHARSET, 0, 0,
                     ANTIALIASED_QUALITY, 0, name);
}

void Texts(HDC dc, bool /*emf*/) {
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

void WideTexts(HDC dc, bool /*emf*/) {
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

void TextPaths(HDC dc, bool /*emf*/) {
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

// Bitmaps.

void Bitmaps(HDC dc, bool /*emf*/) {
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
  // A negative source size mirrors.
  StretchDIBits(dc, 184, 80, 12, 30, 27, 0, -12, 30, bitmap.bits.data(), bitmap.Info(), DIB_RGB_COLORS, SRCCOPY);
  StretchDIBits(dc, 101, 115, 8, 30, 16, 29, 8, -30, bitmap.bits.data(), bitmap.Info(), DIB_RGB_COLORS, SRCCOPY);
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
  Bitmap masked = MakeBitmap(24, 20, 16);
  masked.header.biCompression = BI_BITFIELDS;
  const DWORD masks[] = {0xF800, 0x07E0, 0x001F};
  std::copy_n(reinterpret_cast<const RGBQUAD*>(masks), 3, masked.colours);
  Stretch(dc, 110, 115, 24, 30, masked);
  Bitmap small_runs = MakeBitmap(16, 4, 4);
  small_runs.header.biCompression = BI_RLE4;
  // A run, a literal run, a delta, a run, the end of the bitmap.
  small_runs.bits = {6, 0x3A, 0, 5, 0x12, 0x34, 0x50, 0, 0, 0, 0, 2, 4, 1, 9, 0xC7, 0, 1, 0, 0};
  small_runs.header.biSizeImage = static_cast<DWORD>(small_runs.bits.size());
  Stretch(dc, 140, 115, 48, 30, small_runs);
}

constexpr DWORD kOps[] = {SRCCOPY,    SRCPAINT, SRCAND,   SRCINVERT, SRCERASE,  NOTSRCCOPY, NOTSRCERASE, MERGECOPY,
                          MERGEPAINT, PATCOPY,  PATPAINT, PATINVERT, DSTINVERT, BLACKNESS,  WHITENESS,   0x00B8074A};

void RasterOps(HDC dc, bool /*emf*/) {
  Ground(dc);
  HDC source = BitmapDc(MakeBitmap(20, 28, 24));
  Brush(dc, RGB(200, 120, 40));
  for (int i = 0; i < 16; ++i) {
    BitBlt(dc, 4 + i % 8 * 24, 4 + i / 8 * 36, 20, 28, source, 0, 0, kOps[i]);
    StretchBlt(dc, 4 + i % 8 * 24, 78 + i / 8 * 36, 20, 32, source, 2, 3, 15, 20, kOps[i]);
  }
}

void DibRasterOps(HDC dc, bool /*emf*/) {
  Ground(dc);
  const Bitmap bitmap = MakeBitmap(20, 28, 24);
  Brush(dc, RGB(200, 120, 40));
  for (int i = 0; i < 16; ++i) Stretch(dc, 4 + i % 8 * 24, 4 + i / 8 * 72, 20, 60, bitmap, kOps[i]);
  PatBlt(dc, 180, 0, 20, 150, PATCOPY);
}

void Masks(HDC dc, bool /*emf*/) {
  Ground(dc);
  HDC source = BitmapDc(MakeBitmap(60, 60, 24));
  WORD rows[60 * 4];
  for (int i = 0; i < 240; ++i) rows[i] = i / 4 % 16 < 8 ? 0xF00F : 0x0FF0;
  HBITMAP mask = CreateBitmap(60, 60, 1, 1, rows);
  MaskBlt(dc, 5, 5, 60, 60, source, 0, 0, mask, 0, 0, MAKEROP4(SRCCOPY, 0x00AA0029));
  MaskBlt(dc, 70, 5, 60, 60, source, 0, 0, mask, 0, 0, MAKEROP4(SRCINVERT, SRCCOPY));
}

void Parallelograms(HDC dc, bool /*emf*/) {
  const POINT corners[] = {{20, 20}, {140, 50}, {60, 120}};
  PlgBlt(dc, corners, BitmapDc(MakeBitmap(60, 60, 24)), 0, 0, 60, 60, nullptr, 0, 0);
}

void ParallelogramTruth(HDC dc, bool /*emf*/) {
  DrawByPoints(dc, MakeBitmap(60, 60, 24), [](double x, double y) {
    const double whole = 120 * 100 - 40 * 30;
    const double across = ((x - 20) * 100 - (y - 20) * 40) / whole;
    const double down = ((y - 20) * 120 - (x - 20) * 30) / whole;
    return std::pair(across * 60, down * 60);
  });
}

void Blends(HDC dc, bool /*emf*/) {
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

constexpr Family kFamilies[] = {
    {"texts", Texts, true, true},
    {"wide_texts", WideTexts, false, true},
    {"text_paths", TextPaths, false, true},
    {"bitmaps", Bitmaps, true, true},
    {"raster_ops", RasterOps, true, true, RasterOps},
    {"dib_raster_ops", DibRasterOps, true, true},
    {"masks", Masks, false, true, Masks},
    {"parallelograms", Parallelograms, false, true, ParallelogramTruth},
    {"blends", Blends, false, true, Blends},
};

}  // namespace

std::span<const Family> TextAndBitmapFamilies() { return kFamilies; }
