#pragma once

#include <memory>

namespace quorvale {

class FileSystem;
class PictureLoader;
class Registry;

// The parts of a platform that need no screen.
class PlatformParts {
 public:
  virtual ~PlatformParts() = default;
  virtual PictureLoader& Pictures() = 0;
  virtual Registry& Store() = 0;
  virtual FileSystem& Files() = 0;
};

// The parts of the platform that the bench is built for. On Linux the store is not the user's.
std::unique_ptr<PlatformParts> MakePlatformParts();

}  // namespace quorvale
