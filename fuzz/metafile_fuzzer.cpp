// Plays its input as a picture that is loaded and shown.

#include <QGuiApplication>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/failure.h"
#include "platform/desktop/metafile/metafile_picture.h"

namespace {

using namespace quorvale;

constexpr int kWidth = 100;
constexpr int kHeight = 75;

void Show(std::vector<std::uint8_t> bytes) {
  try {
    MetafilePicture picture(std::move(bytes));
    // Scaled to the screen, and a part of it at its own size.
    const PixelRect whole{0, 0, kWidth, kHeight};
    const TwipSize natural = picture.NaturalSize(1);
    const PixelRect own{-10, -10, static_cast<int>(natural.width / kTwipsPerPixel) + 1,
                        static_cast<int>(natural.height / kTwipsPerPixel) + 1};
    static std::array<Pixel, kWidth * kHeight> pixels;
    pixels.fill(0xFF808080U);
    const PixelView view{pixels.data(), kWidth, kHeight, kWidth};
    picture.Prepare({.box = [&](const TwipSize& /*natural*/) { return whole; }, .clip = whole, .scale = 1});
    picture.Paint(view, whole, whole);
    picture.Paint(view, own, {20, 20, 30, 30});
  } catch (const Failure&) {  // NOLINT(bugprone-empty-catch): damaged files are expected.
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static const QGuiApplication application(*argc, *argv);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (IsMetafile({data, size})) Show({data, data + size});
  return 0;
}
