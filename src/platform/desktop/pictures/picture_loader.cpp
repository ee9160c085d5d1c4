#include "platform/desktop/pictures/picture_loader.h"

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

#include "platform/desktop/metafile/metafile_picture.h"
#include "platform/desktop/pictures/formats.h"

namespace quorvale {
namespace {

// The names of the formats stand in `kPictureFormats`. A test ties both lists together.
struct Decoder {
  bool (*recognises)(PictureFile& file);
  OpenedPicture (*opens)(std::unique_ptr<PictureFile> file);
};

// Enough to recognise a metafile.
constexpr std::size_t kMetafileHead = 64;

bool IsMetafile(PictureFile& file) {
  std::vector<std::uint8_t> head(std::min(kMetafileHead, file.Size()));
  file.Copy(0, head);
  return quorvale::IsMetafile(head);
}

OpenedPicture OpenMetafile(std::unique_ptr<PictureFile> file) {
  std::vector<std::uint8_t> bytes(file->Size());
  file->Copy(0, bytes);
  return std::make_shared<MetafilePicture>(std::move(bytes));
}

// One player serves both kinds of metafile.
constexpr Decoder kDecoders[] = {
    {IsBmp, OpenBmp}, {IsGif, OpenGif}, {IsJpeg, OpenJpeg}, {IsMetafile, OpenMetafile}, {IsPng, OpenPng},
};

}  // namespace

std::shared_ptr<Picture> DesktopPictureLoader::Load(const std::string& path, const PicturePlace& place) {
  try {
    auto file = std::make_unique<PictureFile>(path, reading_);
    for (const Decoder& decoder : kDecoders) {
      if (!decoder.recognises(*file)) continue;
      auto picture = decoder.opens(std::move(file));
      picture->Prepare(place);
      return picture;
    }
    FailLoad("Not a picture");
  } catch (const std::bad_alloc&) {
    FailLoad("Picture too large");
  }
}

}  // namespace quorvale
