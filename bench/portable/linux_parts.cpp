#include <memory>

#include "bench_files.h"
#include "platform/desktop/pictures/picture_loader.h"
#include "platform/desktop/system/files.h"
#include "platform/desktop/system/posix_file_system.h"
#include "platform/desktop/system/sqlite_registry.h"
#include "portable/platform_parts.h"

namespace quorvale {
namespace {

class LinuxParts : public PlatformParts {
 public:
  LinuxParts() { UseOwnSettings(); }

  PictureLoader& Pictures() override { return pictures_; }
  Registry& Store() override {
    if (!store_) store_ = std::make_unique<SqliteRegistry>(SettingsDirectory());
    return *store_;
  }

  FileSystem& Files() override { return files_; }

 private:
  DesktopPictureLoader pictures_;
  PosixFileSystem files_{"", ""};
  std::unique_ptr<SqliteRegistry> store_;
};

}  // namespace

std::unique_ptr<PlatformParts> MakePlatformParts() { return std::make_unique<LinuxParts>(); }

}  // namespace quorvale
