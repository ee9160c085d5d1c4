#include <memory>

#include "platform/win32/pictures/picture_loader.h"
#include "platform/win32/system/com.h"
#include "platform/win32/system/win32_file_system.h"
#include "platform/win32/system/win32_registry.h"
#include "portable/platform_parts.h"

namespace quorvale {
namespace {

class WindowsParts : public PlatformParts {
 public:
  PictureLoader& Pictures() override { return pictures_; }
  Registry& Store() override { return store_; }
  FileSystem& Files() override { return files_; }

 private:
  ComApartment components_;
  Win32PictureLoader pictures_;
  Win32Registry store_;
  Win32FileSystem files_;
};

}  // namespace

std::unique_ptr<PlatformParts> MakePlatformParts() { return std::make_unique<WindowsParts>(); }

}  // namespace quorvale
