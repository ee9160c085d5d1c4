#pragma once

#include <memory>
#include <type_traits>

#include "platform/win32/windows_api.h"
#include "toolkit/pixel_view.h"

namespace quorvale {

struct DeleteGdiObject {
  void operator()(HGDIOBJ object) const { DeleteObject(object); }
};

template <typename Handle>
using GdiObject = std::unique_ptr<std::remove_pointer_t<Handle>, DeleteGdiObject>;

using GdiFont = GdiObject<HFONT>;

// A device context in memory, with an object selected into it at a time or none.
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

// A bitmap of the system's whose pixels can be read and written, from the top row down.
class PixelBitmap {
 public:
  // Fails with kInternal where there is no memory for it.
  PixelBitmap(int width, int height);

  HBITMAP Get() const { return bitmap_.get(); }
  // The system draws into it and leaves the topmost byte of a pixel undefined.
  const PixelView& Pixels() const { return pixels_; }

 private:
  PixelView pixels_;
  GdiObject<HBITMAP> bitmap_;
};

// Copies the pixels of `source` in `rect` to the same place of the context.
void CopyPixels(HDC context, const PixelView& source, const PixelRect& rect);

}  // namespace quorvale
