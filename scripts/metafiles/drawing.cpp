#include "drawing.h"

#include <cstring>
#include <iterator>

HGDIOBJ Use(HDC dc, HGDIOBJ object) {
  SelectObject(dc, object);
  return object;
}
void Brush(HDC dc, COLORREF colour) { Use(dc, CreateSolidBrush(colour)); }
void Pen(HDC dc, int style, int width, COLORREF colour) { Use(dc, CreatePen(style, width, colour)); }

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
        std::uint8_t* const low = std::next(row, std::ptrdiff_t{x} * 2);
        low[0] = static_cast<std::uint8_t>(pixel);
        low[1] = static_cast<std::uint8_t>(pixel >> 8);
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

void Stretch(HDC dc, int x, int y, int width, int height, const Bitmap& bitmap, DWORD op) {
  StretchDIBits(dc, x, y, width, height, 0, 0, bitmap.header.biWidth, std::abs(bitmap.header.biHeight),
                bitmap.bits.data(), bitmap.Info(), DIB_RGB_COLORS, op);
}

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

void Ground(HDC dc) {
  Use(dc, GetStockObject(NULL_PEN));
  for (int i = 0; i < 5; ++i) {
    Brush(dc, RGB(50 * i, 255 - 40 * i, 120 + 20 * i));
    Rectangle(dc, i * 40, 0, i * 40 + 41, 151);
  }
}
