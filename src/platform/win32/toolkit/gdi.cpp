#include "platform/win32/toolkit/gdi.h"

#include "base/failure.h"

namespace quorvale {

PixelBitmap::PixelBitmap(int width, int height) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* bits = nullptr;
  bitmap_.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (!bitmap_) throw Failure(FailureNumber::kInternal, "No memory for a bitmap", "PixelBitmap");
  pixels_ = {static_cast<Pixel*>(bits), width, height, width};
}

}  // namespace quorvale
