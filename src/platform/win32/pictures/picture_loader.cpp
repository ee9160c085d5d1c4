#include "platform/win32/pictures/picture_loader.h"

#include <cstdint>
#include <new>
#include <span>
#include <utility>
#include <vector>

#include "platform/pictures/rendered_picture.h"
#include "platform/win32/pictures/metafile_picture.h"
#include "platform/win32/pictures/wic_picture.h"
#include "platform/win32/system/files.h"
#include "platform/win32/system/system_text.h"

namespace quorvale {
namespace {

// Reads the whole file. Fails with kNotFound or kUnreadable, and with kBadPicture beyond `kPictureMemoryLimit`. Only
// plain files are readable.
std::vector<std::uint8_t> ReadPictureFile(const std::string& path) {
  const Handle file = OpenForReading(path);
  LARGE_INTEGER size{};
  if (GetFileSizeEx(file.Get(), &size) == 0) throw FileFailure(GetLastError(), path, FailureNumber::kUnreadable);
  if (static_cast<std::uint64_t>(size.QuadPart) > kPictureMemoryLimit) {
    FailLoad("Picture file too large");
  }
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size.QuadPart));
  std::size_t done = 0;
  while (done < bytes.size()) {
    const std::size_t got = ReadSome(file, std::span(bytes).subspan(done), path);
    if (got == 0) break;
    done += got;
  }
  bytes.resize(done);
  return bytes;
}

}  // namespace

std::shared_ptr<Picture> Win32PictureLoader::Load(const std::string& path, const PicturePlace& place) {
  try {
    std::vector<std::uint8_t> bytes = ReadPictureFile(path);
    if (auto metafile = OpenMetafile(bytes)) return std::make_shared<MetafilePicture>(std::move(metafile));
    auto picture = std::make_shared<WicPicture>(std::move(bytes));
    picture->Prepare(place);
    return picture;
  } catch (const std::bad_alloc&) {
    FailLoad("Picture too large");
  }
}

}  // namespace quorvale
