#pragma once

#include "platform/win32/windows_api.h"
// Behind the header that it builds on.
#include <wincodec.h>

#include "platform/win32/system/com.h"

// A decoder that can scale while it decodes has this interface. The compiler's own headers leave it out. Like every
// component it destroys itself.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor)
struct IWICBitmapSourceTransform : public IUnknown {
  virtual HRESULT STDMETHODCALLTYPE CopyPixels(const WICRect* rect, UINT width, UINT height, WICPixelFormatGUID* format,
                                               WICBitmapTransformOptions transform, UINT stride, UINT size,
                                               BYTE* pixels) = 0;
  // The size nearest to the wanted one that the decoder can make.
  virtual HRESULT STDMETHODCALLTYPE GetClosestSize(UINT* width, UINT* height) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetClosestPixelFormat(WICPixelFormatGUID* format) = 0;
  virtual HRESULT STDMETHODCALLTYPE DoesSupportTransform(WICBitmapTransformOptions transform, BOOL* supported) = 0;
};

__CRT_UUID_DECL(IWICBitmapSourceTransform, 0x3b16811b, 0x6a43, 0x4ec9, 0xb7, 0x13, 0x3d, 0x5a, 0x0c, 0x13, 0xb9, 0x40)

namespace quorvale {

using WicFactory = ComPointer<IWICImagingFactory>;
using WicFrame = ComPointer<IWICBitmapFrameDecode>;
using WicSource = ComPointer<IWICBitmapSource>;

// Fails with kBadPicture where a call did: one for a picture too large for the memory, one for any other.
void CheckPicture(HRESULT result);

// The system's picture decoders. Fails with kInternal on a system without them.
WicFactory CreateWicFactory();

}  // namespace quorvale
