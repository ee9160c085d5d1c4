#include "platform/win32/toolkit/gdi.h"

#include "base/failure.h"

namespace quorvale {

namespace {

// Our pixels as the system knows them, from the top row down.
BITMAPINFO PixelFormat(int width, int height) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  return info;
}

}  // namespace

PixelBitmap::PixelBitmap(int width, int height) {
  const BITMAPINFO info = PixelFormat(width, height);
  void* bits = nullptr;
  bitmap_.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (!bitmap_) throw Failure(FailureNumber::kInternal, "No memory for a bitmap", "PixelBitmap");
  pixels_ = {static_cast<Pixel*>(bits), width, height, width};
}

void CopyPixels(HDC context, const PixelView& source, const PixelRect& rect) {
  const BITMAPINFO info = PixelFormat(static_cast<int>(source.stride), rect.height);
  SetDIBitsToDevice(context, rect.left, rect.top, static_cast<DWORD>(rect.width), static_cast<DWORD>(rect.height),
                    rect.left, 0, 0, static_cast<UINT>(rect.height), source.Row(rect.top), &info, DIB_RGB_COLORS);
}

}  // namespace quorvale
