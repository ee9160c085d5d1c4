#pragma once

#include "platform/win32/windows_api.h"
// Behind the header that it builds on.
#include <wincodec.h>

#include "platform/win32/system/com_apartment.h"
#include "platform/win32/system/com_pointer.h"

namespace quorvale {

using WicFactory = ComPointer<IWICImagingFactory>;
using WicFrame = ComPointer<IWICBitmapFrameDecode>;
using WicSource = ComPointer<IWICBitmapSource>;

// Fails with kBadPicture where a call did: one for a picture too large for the memory, one for any other.
void CheckPicture(HRESULT result);

// The system's picture decoders. Fails with kInternal on a system without them.
WicFactory CreateWicFactory();

}  // namespace quorvale
