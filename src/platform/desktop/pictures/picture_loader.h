#pragma once

#include <memory>
#include <string>

#include "toolkit/picture.h"

namespace quorvale {

// Tells the kind of a picture file by its content.
class DesktopPictureLoader : public PictureLoader {
 public:
  DesktopPictureLoader();
  std::shared_ptr<Picture> Load(const std::string& path, const PicturePlace& place) override;
};

}  // namespace quorvale
