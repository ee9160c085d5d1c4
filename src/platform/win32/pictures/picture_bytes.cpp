#include "platform/win32/pictures/picture_bytes.h"

#include <algorithm>

#include "base/failure.h"
#include "platform/pictures/rendering.h"
#include "platform/win32/system/files.h"
#include "platform/win32/system/system_text.h"

namespace quorvale {

PictureBytes ReadPictureFile(const std::string& path) {
  const Handle file = OpenForReading(path);
  LARGE_INTEGER size{};
  if (GetFileSizeEx(file.Get(), &size) == 0) throw FileFailure(GetLastError(), path, FailureNumber::kUnreadable);
  if (static_cast<std::uint64_t>(size.QuadPart) > kPictureMemoryLimit) {
    FailLoad("Picture file too large");
  }
  PictureBytes bytes(static_cast<std::size_t>(size.QuadPart));
  std::size_t done = 0;
  while (done < bytes.size()) {
    const std::size_t got = ReadSome(file, std::span(bytes).subspan(done), path);
    if (got == 0) break;
    done += got;
  }
  bytes.resize(done);
  return bytes;
}

}  // namespace quorvale
