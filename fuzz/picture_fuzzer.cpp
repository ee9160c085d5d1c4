// Loads its input as a picture file of any format, and shows it.

#include <sys/mman.h>
#include <unistd.h>

#include <QGuiApplication>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/failure.h"
#include "libfuzzer.h"
#include "platform/desktop/pictures/picture_loader.h"
#include "platform/desktop/system/files.h"

namespace quorvale {
namespace {

constexpr int kWidth = 48;
constexpr int kHeight = 32;
constexpr PixelRect kScreen{0, 0, kWidth, kHeight};

// As the show places a picture: stretched, or at its own size in the middle.
PixelRect Stretched(const TwipSize& /*natural*/) { return kScreen; }
PixelRect Centred(const TwipSize& natural) {
  const int width = static_cast<int>(natural.width / kTwipsPerPixel);
  const int height = static_cast<int>(natural.height / kTwipsPerPixel);
  return {(kWidth - width) / 2, (kHeight - height) / 2, width, height};
}

void Show(PictureLoader& loader, const std::string& path, PixelRect (*place)(const TwipSize&)) {
  std::vector<Pixel> pixels(std::size_t{kWidth} * kHeight);
  const PixelView target{pixels.data(), kWidth, kHeight, kWidth};
  try {
    const auto picture = loader.Load(path, {place, kScreen, 1});
    const PixelRect box = place(picture->NaturalSize(1));
    picture->Paint(target, box, kScreen);
    // The caption with the file's name takes some height away.
    picture->Paint(target, {box.left, box.top, box.width, box.height - 3}, {5, 5, 20, 20});
  } catch (const Failure&) {  // NOLINT(bugprone-empty-catch): most inputs are no pictures, and that is no fault.
  }
}

}  // namespace
}  // namespace quorvale

// Text in metafiles needs it.
// NOLINTNEXTLINE(readability-non-const-parameter): the library says what the parameters are.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static const QGuiApplication application(*argc, *argv);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quorvale;
  static DesktopPictureLoader loader;
  const FileDescriptor file(memfd_create("picture", MFD_CLOEXEC));
  if (write(file.Get(), data, size) != static_cast<ssize_t>(size)) return 0;
  const std::string path = "/proc/self/fd/" + std::to_string(file.Get());
  Show(loader, path, Stretched);
  Show(loader, path, Centred);
  return 0;
}
