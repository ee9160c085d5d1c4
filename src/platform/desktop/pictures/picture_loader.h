#pragma once

#include <memory>
#include <string>

#include "platform/desktop/pictures/picture_file.h"
#include "toolkit/picture.h"

namespace quorvale {

// Recognises the format of a picture file by its content.
class DesktopPictureLoader : public PictureLoader {
 public:
  explicit DesktopPictureLoader(PictureReading reading = {}) : reading_(reading) {}

  std::shared_ptr<Picture> Load(const std::string& path, const PicturePlace& place) override;

 private:
  PictureReading reading_;
};

}  // namespace quorvale
