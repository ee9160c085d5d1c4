#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/pictures/rendered_picture.h"
#include "platform/win32/pictures/file_heads.h"
#include "platform/win32/windows_api.h"
// Needs the header above.
#include <wincodec.h>

#include "platform/win32/system/com.h"

namespace quorvale {

using WicFactory = ComPointer<IWICImagingFactory>;
using WicFrame = ComPointer<IWICBitmapFrameDecode>;

// A whole file. Decoders that nobody waits for any more read it on.
using PictureBytes = std::shared_ptr<const std::vector<std::uint8_t>>;

// The system's picture decoders. Fails with kInternal on a system without them.
WicFactory CreateWicFactory();

// A picture of any format that the system decodes. An animated one shows its first frame.
class WicPicture : public BitmapPicture {
 public:
  // Fails with kBadPicture.
  explicit WicPicture(std::vector<std::uint8_t> bytes);

 protected:
  std::unique_ptr<RowSource> Open(PixelSize stored_box) override;

 private:
  WicFrame OpenFrame() const;

  // Outlives the decoders.
  ComApartment apartment_;
  WicFactory factory_;
  PictureBytes file_;
  PixelSize frame_size_;
  GifCanvas canvas_;
  // Used by the first `Open`.
  WicFrame frame_;
};

}  // namespace quorvale
