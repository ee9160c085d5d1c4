#include "platform/desktop/pictures/picture_loader.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/desktop/metafile/metafile_picture.h"
#include "platform/desktop/pictures/formats.h"
#include "toolkit/picture.h"

namespace quorvale {
namespace {

struct Format {
  std::string_view name;
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
constexpr Format kFormats[] = {
    {"BMP", IsBmp, OpenBmp},           {"GIF", IsGif, OpenGif},           {"JPEG", IsJpeg, OpenJpeg},
    {"WMF", IsMetafile, OpenMetafile}, {"EMF", IsMetafile, OpenMetafile}, {"PNG", IsPng, OpenPng},
};

// The rows are those of `kPictureFormats`.
static_assert(std::equal(std::begin(kFormats), std::end(kFormats), std::begin(kPictureFormats),
                         std::end(kPictureFormats),
                         [](const Format& row, const PictureFormat& named) { return row.name == named.name; }));

}  // namespace

std::shared_ptr<Picture> DesktopPictureLoader::Load(const std::string& path, const PicturePlace& place) {
  try {
    auto file = std::make_unique<PictureFile>(path, reading_);
    for (const Format& format : kFormats) {
      if (!format.recognises(*file)) continue;
      auto picture = format.opens(std::move(file));
      picture->Prepare(place);
      return picture;
    }
    FailLoad("Not a picture");
  } catch (const std::bad_alloc&) {
    FailLoad("Picture too large");
  }
}

}  // namespace quorvale
