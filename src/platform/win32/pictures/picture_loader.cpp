#include "platform/win32/pictures/picture_loader.h"

#include <new>
#include <utility>

#include "base/failure.h"
#include "platform/win32/pictures/metafile_picture.h"
#include "platform/win32/pictures/picture_bytes.h"
#include "platform/win32/pictures/wic_picture.h"

namespace quorvale {

std::shared_ptr<Picture> Win32PictureLoader::Load(const std::string& path, const PicturePlace& place) {
  try {
    PictureBytes bytes = ReadPictureFile(path);
    if (auto metafile = OpenMetafile(bytes)) return std::make_shared<MetafilePicture>(std::move(metafile));
    auto picture = std::make_shared<WicPicture>(std::move(bytes));
    picture->Prepare(place);
    return picture;
  } catch (const std::bad_alloc&) {
    throw Failure(FailureNumber::kBadPicture, "Picture too large", "LoadPicture");
  }
}

}  // namespace quorvale
