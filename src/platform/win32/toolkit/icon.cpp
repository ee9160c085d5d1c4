#include "platform/win32/toolkit/icon.h"

#include <algorithm>

#include "platform/win32/toolkit/gdi.h"

namespace quorvale {

Icon MakeIcon(Bitmap picture) {
  const PixelView source = picture.View();
  if (source.Bounds().IsEmpty()) return nullptr;
  const PixelBitmap colours(source.width, source.height);
  for (int y = 0; y < source.height; ++y) std::copy_n(source.Row(y), source.width, colours.Pixels().Row(y));
  // Each pixel says itself how far it is seen; the mask has only to be there.
  const GdiObject<HBITMAP> mask(CreateBitmap(source.width, source.height, 1, 1, nullptr));
  ICONINFO info{};
  info.fIcon = TRUE;
  info.hbmMask = mask.get();
  info.hbmColor = colours.Get();
  return Icon(CreateIconIndirect(&info));
}

}  // namespace quorvale
