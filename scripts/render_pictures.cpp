// Renders picture files as the program would, for looking at them: FOLDER/NUMBER-NAME.png each, in a box
// of 320 by 240 pixels at the most, and a line with the time and the size.

#include <QGuiApplication>
#include <QImage>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>

#include "platform/desktop/pictures/picture_loader.h"

namespace quorvale {
namespace {

constexpr double kWidth = 320;
constexpr double kHeight = 240;

void RenderFile(const std::string& path, const std::string& to) {
  const auto start = std::chrono::steady_clock::now();
  PixelRect box;
  const PicturePlace place{.box =
                               [&](const TwipSize& natural) {
                                 const double scale = std::min(kWidth / natural.width, kHeight / natural.height);
                                 box = {0, 0, std::max(1, static_cast<int>(natural.width * scale)),
                                        std::max(1, static_cast<int>(natural.height * scale))};
                                 return box;
                               },
                           .clip = {0, 0, static_cast<int>(kWidth), static_cast<int>(kHeight)},
                           .scale = 1};
  const auto picture = DesktopPictureLoader().Load(path, place);
  QImage image(box.width, box.height, QImage::Format_RGB32);
  image.fill(Qt::white);
  picture->Paint({reinterpret_cast<Pixel*>(image.bits()), box.width, box.height, image.bytesPerLine() / 4}, box, box);
  const auto end = std::chrono::steady_clock::now();
  image.save(QString::fromStdString(to));
  const TwipSize natural = picture->NaturalSize(1);
  std::printf("%6.0f ms  %5.0f x %5.0f px  %s\n", std::chrono::duration<double, std::milli>(end - start).count(),
              natural.width / kTwipsPerPixel, natural.height / kTwipsPerPixel, path.c_str());
}

}  // namespace
}  // namespace quorvale

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  if (argc < 3) {
    std::fputs("Usage: quorvale-render-pictures FOLDER PICTURE...\n", stderr);
    return 2;
  }
  for (int i = 2; i < argc; ++i) {
    const std::filesystem::path path = argv[i];
    char number[16];
    std::snprintf(number, sizeof(number), "%04d", i - 1);
    try {
      quorvale::RenderFile(path, std::string(argv[1]) + "/" + number + "-" + path.filename().string() + ".png");
    } catch (const std::exception& failure) {
      std::printf("FAILED %s: %s\n", path.c_str(), failure.what());
    }
  }
  return 0;
}
