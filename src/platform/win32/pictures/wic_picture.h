#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/pictures/rendered_picture.h"
#include "platform/win32/pictures/file_heads.h"
#include "platform/win32/windows_api.h"
// Behind the header that it builds on.
#include <wincodec.h>

#include "platform/win32/system/com.h"

namespace quorvale {

using WicFactory = ComPointer<IWICImagingFactory>;
using WicFrame = ComPointer<IWICBitmapFrameDecode>;

// The system's picture decoders. Fails with kInternal on a system without them.
WicFactory CreateWicFactory();

// A picture of any format that the system decodes; of an animated one the first frame.
class WicPicture : public BitmapPicture {
 public:
  // Fails with kBadPicture.
  explicit WicPicture(std::vector<std::uint8_t> bytes);

 protected:
  std::unique_ptr<RowSource> Open(PixelSize stored_box) override;

 private:
  WicFrame OpenFrame() const;

  // The decoders must not outlive it.
  ComApartment apartment_;
  WicFactory factory_;
  std::vector<std::uint8_t> bytes_;
  PixelSize frame_size_;
  GifCanvas canvas_;
  // Waits for the first `Open`.
  WicFrame frame_;
};

}  // namespace quorvale
