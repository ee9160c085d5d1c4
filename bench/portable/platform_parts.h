#pragma once

#include <memory>

namespace quorvale {

class PictureLoader;
class Registry;

// The parts of a platform that need no screen.
class PlatformParts {
 public:
  virtual ~PlatformParts() = default;
  virtual PictureLoader& Pictures() = 0;
  virtual Registry& Store() = 0;
};

// Of the platform that the bench is built for. The store is not the user's where that can be.
std::unique_ptr<PlatformParts> MakePlatformParts();

}  // namespace quorvale
