#include "desktop/pictures/samples.h"

#include <QBuffer>
#include <QImageReader>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <numbers>

#include <jpeglib.h>

#include "support/png_chunk.h"

namespace quorvale {
namespace {

// The size of a PNG's last chunk.
constexpr std::ptrdiff_t kPngEnd = 12;

// Compresses rows of `format` with the settings that `adjust` makes.
Bytes Compress(const QImage& image, J_COLOR_SPACE format, int channels,
               const std::function<void(jpeg_compress_struct&)>& adjust, int exif, const Bytes& profile = {}) {
  jpeg_compress_struct encoder{};
  jpeg_error_mgr errors{};
  encoder.err = jpeg_std_error(&errors);
  jpeg_create_compress(&encoder);
  unsigned char* memory = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&encoder, &memory, &size);
  encoder.image_width = static_cast<JDIMENSION>(image.width());
  encoder.image_height = static_cast<JDIMENSION>(image.height());
  encoder.input_components = channels;
  encoder.in_color_space = format;
  jpeg_set_defaults(&encoder);
  jpeg_set_quality(&encoder, 90, TRUE);
  adjust(encoder);
  jpeg_start_compress(&encoder, TRUE);
  if (exif != 0) {
    const Bytes data = ExifData(exif);
    jpeg_write_marker(&encoder, JPEG_APP0 + 1, data.data(), static_cast<unsigned>(data.size()));
  }
  for (std::uint8_t piece = 0; piece < 2 && !profile.empty(); ++piece) {
    Bytes data{'I', 'C', 'C', '_', 'P', 'R', 'O', 'F', 'I', 'L', 'E', 0, static_cast<std::uint8_t>(piece + 1), 2};
    const auto middle = profile.begin() + static_cast<std::ptrdiff_t>(profile.size() / 2);
    data.insert(data.end(), piece == 0 ? profile.begin() : middle, piece == 0 ? middle : profile.end());
    jpeg_write_marker(&encoder, JPEG_APP0 + 2, data.data(), static_cast<unsigned>(data.size()));
  }
  for (int y = 0; y < image.height(); ++y) {
    auto* row = const_cast<uchar*>(image.constScanLine(y));
    jpeg_write_scanlines(&encoder, &row, 1);
  }
  jpeg_finish_compress(&encoder);
  jpeg_destroy_compress(&encoder);
  Bytes bytes(memory, memory + size);
  std::free(memory);
  return bytes;
}

}  // namespace

std::string WritePicture(const TemporaryDirectory& directory, const std::string& name, const Bytes& bytes) {
  directory.Write(name, {bytes.begin(), bytes.end()});
  return directory.Path(name);
}

Bytes ReadBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

Bytes First(const Bytes& bytes, std::size_t count) {
  return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count)};
}

std::optional<FailureNumber> LoadFailure(const std::string& path) {
  try {
    Screen screen(40, 30);
    Show(path, screen.Bounds(), screen);
  } catch (const Failure& failure) {
    return failure.Number();
  }
  return std::nullopt;
}

Bytes ExifData(int orientation) {
  const auto number = static_cast<std::uint8_t>(orientation);
  if (orientation % 2 == 0) {
    return {'E',  'x',  'i', 'f', 0, 0, 'I', 'I', 42,     0, 8, 0, 0, 0, 1, 0,
            0x12, 0x01, 3,   0,   1, 0, 0,   0,   number, 0, 0, 0, 0, 0, 0, 0};
  }
  return {'E',  'x',  'i', 'f', 0, 0, 'M', 'M', 0, 42,     0, 0, 0, 8, 0, 1,
          0x01, 0x12, 0,   3,   0, 0, 0,   1,   0, number, 0, 0, 0, 0, 0, 0};
}

Bytes MakeJpeg(const QImage& image, const JpegStyle& style) {
  const auto adjust = [&](jpeg_compress_struct& encoder) {
    if (style.grey) jpeg_set_colorspace(&encoder, JCS_GRAYSCALE);
    encoder.comp_info[0].h_samp_factor = style.across;
    encoder.comp_info[0].v_samp_factor = style.down;
    encoder.restart_in_rows = style.restart_rows;
    if (style.progressive) jpeg_simple_progression(&encoder);
  };
  return Compress(image.convertToFormat(QImage::Format_RGB32), JCS_EXT_BGRX, 4, adjust, style.exif, style.profile);
}

Bytes MakeInkJpeg(const QImage& inks) {
  return Compress(
      inks, JCS_CMYK, 4, [](jpeg_compress_struct& encoder) { jpeg_set_colorspace(&encoder, JCS_YCCK); }, 0);
}

Bytes MakeImage(const QImage& image, const char* format) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, format);
  return {bytes.begin(), bytes.end()};
}

Bytes WithPngChunk(const Bytes& png, const std::string& type, const Bytes& data, bool at_end) {
  const std::string chunk = PngChunk(type, {data.begin(), data.end()});
  Bytes bytes = png;
  bytes.insert(at_end ? bytes.end() - kPngEnd : bytes.begin() + kPngHeaderEnd, chunk.begin(), chunk.end());
  return bytes;
}

Bytes MakeGif(int width, int height, const std::function<int(int x, int y)>& colour) {
  std::array<Pixel, 128> greys{};
  for (Pixel i = 0; i < greys.size(); ++i) greys[i] = 0x020202U * i;
  const std::string bytes = GifFile(width, height, {0, 0, width, height}, greys, 0, colour);
  return {bytes.begin(), bytes.end()};
}

QImage MakeWaves(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  const auto wave = [](double at, double length) {
    return static_cast<int>(std::lround(127.5 + 100 * std::sin(2 * std::numbers::pi * at / length)));
  };
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      image.setPixel(x, y, qRgb(wave(x, width * 1.3), wave(y, height * 0.9), wave(x + 2 * y, width + height)));
    }
  }
  return image;
}

QImage MakeNoise(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  std::uint32_t state = 1;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      state = state * 1664525U + 1013904223U;
      image.setPixel(x, y, 0xFF000000U | state >> 8U);
    }
  }
  return image;
}

QImage Decode(const Bytes& bytes) {
  QByteArray data(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&data);
  QImageReader reader(&buffer);
  reader.setAutoTransform(true);
  return reader.read().convertToFormat(QImage::Format_RGB32);
}

std::shared_ptr<Picture> Show(const std::string& path, const PixelRect& box, Screen& screen, PictureReading reading) {
  return ShowBy(DesktopPictureLoader(reading), path, box, screen);
}

int Difference(const Screen& screen, const PixelRect& area, const PixelRect& box, const QImage& image) {
  int most = 0;
  for (int y = area.top; y < area.Bottom(); ++y) {
    for (int x = area.left; x < area.Right(); ++x) {
      const Pixel shown = screen.At(x, y);
      const QRgb wanted = image.pixel(x - box.left, y - box.top);
      most = std::max({most, std::abs(qRed(shown) - qRed(wanted)), std::abs(qGreen(shown) - qGreen(wanted)),
                       std::abs(qBlue(shown) - qBlue(wanted)), 255 - qAlpha(shown)});
    }
  }
  return most;
}

}  // namespace quorvale
