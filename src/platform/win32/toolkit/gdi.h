#pragma once

#include <memory>
#include <type_traits>

#include "platform/win32/windows_api.h"
#include "toolkit/bitmap.h"

namespace quorvale {

struct DeleteGdiObject {
  void operator()(HGDIOBJ object) const { DeleteObject(object); }
};

template <typename Handle>
using GdiObject = std::unique_ptr<std::remove_pointer_t<Handle>, DeleteGdiObject>;

using GdiFont = GdiObject<HFONT>;

// A device context in memory. Restores its original objects before it goes.
class MemoryContext {
 public:
  MemoryContext() : context_(CreateCompatibleDC(nullptr)), state_(SaveDC(context_)) {}
  ~MemoryContext() {
    RestoreDC(context_, state_);
    DeleteDC(context_);
  }
  MemoryContext(const MemoryContext&) = delete;
  MemoryContext& operator=(const MemoryContext&) = delete;

  HDC Get() const { return context_; }
  // The object must outlive the context.
  void Select(HGDIOBJ object) const { SelectObject(context_, object); }

 private:
  HDC context_;
  int state_;
};

// A GDI bitmap whose pixels can be read and written. The top row comes first.
class PixelBitmap {
 public:
  // Fails with kInternal if there is no memory for it.
  PixelBitmap(int width, int height);

  HBITMAP Get() const { return bitmap_.get(); }
  // After GDI has drawn, the highest byte of each pixel is undefined.
  const PixelView& Pixels() const { return pixels_; }

 private:
  PixelView pixels_;
  GdiObject<HBITMAP> bitmap_;
};

// Copies the pixels of `source` in `rect` to the same place in the context.
void CopyPixels(HDC context, const ConstPixelView& source, const PixelRect& rect);

struct DeleteIcon {
  void operator()(HICON icon) const { DestroyIcon(icon); }
};

using Icon = std::unique_ptr<std::remove_pointer_t<HICON>, DeleteIcon>;

// Null if the system can't make one.
Icon MakeIcon(Bitmap picture);

}  // namespace quorvale
