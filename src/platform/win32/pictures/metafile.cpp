#include "platform/win32/pictures/metafile.h"

namespace quorvale {

std::unique_ptr<Metafile> OpenMetafile(std::span<const std::uint8_t> bytes) {
  auto metafile = OpenEnhancedMetafile(bytes);
  return metafile ? std::move(metafile) : OpenWindowsMetafile(bytes);
}

}  // namespace quorvale
