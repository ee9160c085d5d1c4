#include "platform/desktop/pictures/picture_loader.h"

#include <algorithm>
#include <array>
#include <new>
#include <span>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "platform/desktop/metafile/metafile_picture.h"
#include "platform/desktop/pictures/bmp_picture.h"
#include "platform/desktop/pictures/gif_picture.h"
#include "platform/desktop/pictures/jpeg_picture.h"
#include "platform/desktop/pictures/picture_file.h"
#include "platform/desktop/pictures/png_picture.h"

namespace quorvale {
namespace {

std::shared_ptr<BitmapPicture> OpenBitmap(std::unique_ptr<PictureFile> file) {
  if (JpegPicture::Recognizes(*file)) return std::make_shared<JpegPicture>(std::move(file));
  if (BmpPicture::Recognizes(*file)) return std::make_shared<BmpPicture>(std::move(file));
  if (GifPicture::Recognizes(*file)) return std::make_shared<GifPicture>(std::move(file));
  if (PngPicture::Recognizes(*file)) return std::make_shared<PngPicture>(std::move(file));
  throw Failure(FailureNumber::kBadPicture, "Not a picture", "LoadPicture");
}

// As much as tells a metafile from other files.
constexpr std::size_t kMetafileHead = 64;

template <typename Kind>
std::shared_ptr<Picture> Prepared(std::shared_ptr<Kind> picture, const PicturePlace& place) {
  picture->Prepare(place);
  return picture;
}

// All of the file.
std::vector<std::uint8_t> Bytes(PictureFile& file) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(file.Size());
  for (auto piece = file.From(0); !piece.empty(); piece = file.From(bytes.size())) {
    bytes.insert(bytes.end(), piece.begin(), piece.end());
  }
  return bytes;
}

std::shared_ptr<Picture> Open(std::unique_ptr<PictureFile> file, const PicturePlace& place) {
  std::array<std::uint8_t, kMetafileHead> head{};
  file->Copy(0, head);
  if (IsMetafile(std::span(head).first(std::min(head.size(), file->Size()))))
    return Prepared(std::make_shared<MetafilePicture>(Bytes(*file)), place);
  return Prepared(OpenBitmap(std::move(file)), place);
}

}  // namespace

std::shared_ptr<Picture> DesktopPictureLoader::Load(const std::string& path, const PicturePlace& place) {
  try {
    return Open(std::make_unique<PictureFile>(path, reading_), place);
  } catch (const std::bad_alloc&) {
    throw Failure(FailureNumber::kBadPicture, "Picture too large", "LoadPicture");
  }
}

}  // namespace quorvale
