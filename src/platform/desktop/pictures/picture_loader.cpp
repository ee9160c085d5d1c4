#include "platform/desktop/pictures/picture_loader.h"

#include <QImageReader>
#include <new>
#include <utility>

#include "base/failure.h"
#include "platform/desktop/pictures/bmp_picture.h"
#include "platform/desktop/pictures/gif_picture.h"
#include "platform/desktop/pictures/jpeg_picture.h"
#include "platform/desktop/pictures/picture_file.h"
#include "platform/desktop/pictures/png_picture.h"

namespace quorvale {
namespace {

std::shared_ptr<BitmapPicture> Open(std::unique_ptr<PictureFile> file) {
  if (JpegPicture::Recognizes(*file)) return std::make_shared<JpegPicture>(std::move(file));
  if (BmpPicture::Recognizes(*file)) return std::make_shared<BmpPicture>(std::move(file));
  if (GifPicture::Recognizes(*file)) return std::make_shared<GifPicture>(std::move(file));
  if (PngPicture::Recognizes(*file)) return std::make_shared<PngPicture>(std::move(file));
  throw Failure(FailureNumber::kBadPicture, "Not a picture", "LoadPicture");
}

}  // namespace

DesktopPictureLoader::DesktopPictureLoader() {
  QImageReader::setAllocationLimit(static_cast<int>(kPictureMemoryLimit >> 20U));
}

std::shared_ptr<Picture> DesktopPictureLoader::Load(const std::string& path, const PicturePlace& place) {
  try {
    auto picture = Open(std::make_unique<PictureFile>(path));
    picture->Prepare(place);
    return picture;
  } catch (const std::bad_alloc&) {
    throw Failure(FailureNumber::kBadPicture, "Picture too large", "LoadPicture");
  }
}

}  // namespace quorvale
