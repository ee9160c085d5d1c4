#include "platform/desktop/pictures/picture_loader.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <new>
#include <thread>
#include <utility>
#include <vector>

#include "platform/desktop/metafile/metafile_picture.h"
#include "platform/desktop/pictures/formats.h"

namespace quorvale {
namespace {

constexpr float kNeverSlow = std::numeric_limits<float>::infinity();
// Where a photo takes a tenth of a second.
constexpr float kSlowPhoto = 16'000'000;

// The names of the formats stand in `kPictureFormats`. A test ties both lists together.
struct FormatReader {
  bool (*recognises)(PictureFile& file) = nullptr;
  OpenedPicture (*opens)(std::unique_ptr<PictureFile> file) = nullptr;
  // From that many pixels on a picture takes so long that the show must react to a key meanwhile.
  float slow_from = kNeverSlow;
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
constexpr FormatReader kFormatReaders[] = {
    {IsBmp, OpenBmp},
    {IsGif, OpenGif},
    {IsJpeg, OpenJpeg, kSlowPhoto},
    {IsMetafile, OpenMetafile},
    {IsPng, OpenPng, kSlowPhoto},
    {IsWebp, OpenWebp, 0},
    {IsHeif, OpenHeif, 0},
    {IsJxl, OpenJxl, 0},
    {IsTiff, OpenTiff, 0},
};

constexpr std::chrono::milliseconds kQuietWait{50};
constexpr std::chrono::milliseconds kPumpEvery{15};
constexpr std::chrono::seconds kLongestWait{5};

}  // namespace

std::shared_ptr<Picture> DesktopPictureLoader::Load(const std::string& path, const PicturePlace& place) {
  try {
    auto file = std::make_unique<PictureFile>(path, reading_);
    for (const FormatReader& reader : kFormatReaders) {
      if (!reader.recognises(*file)) continue;
      auto picture = reader.opens(std::move(file));
      const TwipSize size = picture->NaturalSize(1);
      const float pixels = size.width / kTwipsPerPixel * size.height / kTwipsPerPixel;
      if (pixels >= reader.slow_from && place.while_waiting) {
        PrepareMeanwhile(picture, place);
      } else {
        picture->Prepare(place);
      }
      return picture;
    }
    FailLoad("Not a picture");
  } catch (const std::bad_alloc&) {
    FailLoad("Picture too large");
  }
}

// The thread owns all that it uses, so that it can be left behind: the libraries can't be interrupted.
void DesktopPictureLoader::PrepareMeanwhile(const OpenedPicture& picture, const PicturePlace& place) {
  const auto start = std::chrono::steady_clock::now();
  const PixelRect box = place.box(picture->NaturalSize(place.scale));
  const auto wait_for = [&](const std::shared_future<void>& work) {
    auto pause = kQuietWait;
    while (work.wait_for(pause) != std::future_status::ready) {
      if (std::chrono::steady_clock::now() - start > kLongestWait) FailLoad("Picture takes too long");
      place.while_waiting();
      pause = kPumpEvery;
    }
  };
  // One at a time, or their memory would add up.
  if (work_.valid()) wait_for(std::shared_future(work_));
  std::packaged_task<void()> task([picture, box, clip = place.clip, scale = place.scale] {
    picture->Prepare({.box = [box](const TwipSize& /*natural*/) { return box; }, .clip = clip, .scale = scale});
  });
  // An event may start another load meanwhile, on another monitor.
  const std::shared_future<void> work = task.get_future().share();
  work_ = work;
  std::thread(std::move(task)).detach();
  wait_for(work);
  work.get();
  // The thread knows nothing of windows and their memory.
  if (place.memory) picture->MoveTo(*place.memory);
}

}  // namespace quorvale
