#pragma once

#include "toolkit/picture.h"

namespace quorvale {

// Recognises the format of a picture file by its content.
class Win32PictureLoader : public PictureLoader {
 public:
  std::shared_ptr<Picture> Load(const std::string& path, const PicturePlace& place) override;
};

}  // namespace quorvale
