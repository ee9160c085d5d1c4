#include "platform/win32/toolkit/gdi.h"

#include <algorithm>

#include "base/failure.h"

namespace quorvale {
namespace {

// Describes the toolkit's pixels to GDI. The negative height means that the top row comes first.
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

void CopyPixels(HDC context, const ConstPixelView& source, const PixelRect& rect) {
  const BITMAPINFO info = PixelFormat(static_cast<int>(source.stride), rect.height);
  SetDIBitsToDevice(context, rect.left, rect.top, static_cast<DWORD>(rect.width), static_cast<DWORD>(rect.height),
                    rect.left, 0, 0, static_cast<UINT>(rect.height), source.Row(rect.top), &info, DIB_RGB_COLORS);
}

Icon MakeIcon(Bitmap picture) {
  const PixelView source = picture.View();
  if (source.Bounds().IsEmpty()) return nullptr;
  const PixelBitmap colours(source.width, source.height);
  for (int y = 0; y < source.height; ++y) std::copy_n(source.Row(y), source.width, colours.Pixels().Row(y));
  // The pixels have their own opacity, but the call needs a mask all the same.
  const GdiObject<HBITMAP> mask(CreateBitmap(source.width, source.height, 1, 1, nullptr));
  ICONINFO info{};
  info.fIcon = TRUE;
  info.hbmMask = mask.get();
  info.hbmColor = colours.Get();
  return Icon(CreateIconIndirect(&info));
}

}  // namespace quorvale
