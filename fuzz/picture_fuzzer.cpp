// Loads its input as a picture file of any format, and shows it. If the environment variable `QUORVALE_FUZZ_KIND` names
// a kind, it passes over all others.

#include <sys/mman.h>
#include <unistd.h>

#include <QGuiApplication>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/failure.h"
#include "libfuzzer.h"
#include "platform/desktop/metafile/metafile_picture.h"
#include "platform/desktop/pictures/formats.h"
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

bool IsWmfOrEmf(PictureFile& file) { return IsMetafile(file.All()); }

// By the ends of their files' names. Two share a container, and two a player.
struct Kind {
  std::string_view name;
  bool (*recognises)(PictureFile& file) = nullptr;
};
constexpr Kind kKinds[] = {
    {"avif", IsHeif}, {"bmp", IsBmp}, {"emf", IsWmfOrEmf}, {"gif", IsGif},   {"heic", IsHeif},    {"jpg", IsJpeg},
    {"jxl", IsJxl},   {"png", IsPng}, {"tif", IsTiff},     {"webp", IsWebp}, {"wmf", IsWmfOrEmf},
};

// Null: any kind will do.
const Kind* wanted_kind = nullptr;

// An unknown name ends the process.
void ReadWantedKind() {
  const char* const name = std::getenv("QUORVALE_FUZZ_KIND");
  if (name == nullptr) return;
  wanted_kind = std::ranges::find(kKinds, name, &Kind::name);
  if (wanted_kind != std::end(kKinds)) return;
  std::fprintf(stderr, "QUORVALE_FUZZ_KIND: there is no kind \"%s\"\n", name);
  std::exit(1);
}

// What begins as two kinds do is read as the one that is asked first, so nobody wants it.
bool IsWanted(const std::string& path) {
  if (wanted_kind == nullptr) return true;
  PictureFile file(path, {});
  return std::ranges::all_of(
      kKinds, [&](const Kind& kind) { return kind.recognises(file) == (kind.recognises == wanted_kind->recognises); });
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

// Text in metafiles needs the application.
// NOLINTNEXTLINE(readability-non-const-parameter): the library says what the parameters are.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static const QGuiApplication application(*argc, *argv);
  quorvale::ReadWantedKind();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quorvale;
  static DesktopPictureLoader loader;
  const FileDescriptor file(memfd_create("picture", MFD_CLOEXEC));
  if (write(file.Get(), data, size) != static_cast<ssize_t>(size)) return 0;
  const std::string path = "/proc/self/fd/" + std::to_string(file.Get());
  if (!IsWanted(path)) return 0;
  Show(loader, path, Stretched);
  Show(loader, path, Centred);
  return 0;
}
