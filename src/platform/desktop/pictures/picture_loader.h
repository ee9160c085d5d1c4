#pragma once

#include <chrono>
#include <future>
#include <memory>
#include <string>

#include "platform/desktop/pictures/picture_file.h"
#include "platform/pictures/rendered_picture.h"
#include "toolkit/picture.h"

namespace quorvale {

// Recognises the format of a picture file by its content.
class DesktopPictureLoader : public PictureLoader {
 public:
  explicit DesktopPictureLoader(PictureReading reading = {}) : reading_(reading) {}

  std::shared_ptr<Picture> Load(const std::string& path, const PicturePlace& place) override;

  // Whether a picture that took too long is still being decoded.
  bool IsBusy() const { return work_.valid() && work_.wait_for(std::chrono::seconds(0)) != std::future_status::ready; }

 private:
  void PrepareMeanwhile(const std::shared_ptr<RenderedPicture>& picture, const PicturePlace& place);

  PictureReading reading_;
  // The last picture that was decoded on a thread of its own.
  std::shared_future<void> work_;
};

}  // namespace quorvale
