#include "platform/win32/pictures/wic_codec.h"

#include "base/failure.h"

namespace quorvale {

void CheckPicture(HRESULT result) {
  if (SUCCEEDED(result)) return;
  const bool too_large = result == E_OUTOFMEMORY || result == WINCODEC_ERR_IMAGESIZEOUTOFRANGE;
  throw Failure(FailureNumber::kBadPicture, too_large ? "Picture too large" : "Not a picture, or damaged",
                "LoadPicture");
}

WicFactory CreateWicFactory() {
  WicFactory factory;
  if (FAILED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(factory.Out())))) {
    throw Failure(FailureNumber::kInternal, "The system has no picture decoders", "LoadPicture");
  }
  return factory;
}

}  // namespace quorvale
