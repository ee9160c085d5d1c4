#include "picture/develop.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <jpeglib.h>

#include "picture/canvas.h"
#include "picture/noise.h"

namespace quorvale::samples {
namespace {

constexpr int kShrink = 8;

// The light that the lens scatters, at an eighth of the size.
Canvas BrightParts(const Canvas& canvas, float threshold) {
  Canvas small(canvas.Width() / kShrink, canvas.Height() / kShrink);
  small.Fill(0, small.Height(), [&](int x, int y) {
    Colour sum;
    for (int j = 0; j < kShrink; ++j) {
      for (int i = 0; i < kShrink; ++i) {
        const Colour light = canvas.At(x * kShrink + i, y * kShrink + j);
        const float brightest = std::max({light.r, light.g, light.b, 1e-6F});
        sum += light * (std::max(0.0F, brightest - threshold) / brightest);
      }
    }
    return sum * (1.0F / (kShrink * kShrink));
  });
  return small;
}

// A running mean over 2 * radius + 1 pixels, along a line of `count` pixels which `at` reaches.
template <typename At>
void MeanAlong(int count, int radius, At at) {
  std::vector<Colour> line(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) line[static_cast<std::size_t>(i)] = at(i);
  const auto held = [&](int i) { return line[static_cast<std::size_t>(std::clamp(i, 0, count - 1))]; };
  Colour sum;
  for (int i = -radius; i <= radius; ++i) sum += held(i);
  for (int i = 0; i < count; ++i) {
    at(i) = sum * (1.0F / static_cast<float>(2 * radius + 1));
    sum += held(i + radius + 1) - held(i - radius);
  }
}

float ToSrgb(float linear) {
  return linear <= 0.0031308F ? 12.92F * linear : 1.055F * std::pow(linear, 1 / 2.4F) - 0.055F;
}

// Film curve and sRGB curve in one table over the square root of the light, which spends its entries on the
// shadows, where the eye counts steps.
class Curve {
 public:
  explicit Curve(float contrast) {
    for (std::size_t i = 0; i < table_.size(); ++i) {
      const float root = static_cast<float>(i) / kPerRoot;
      const float shown = ToSrgb(1 - std::exp(-root * root));
      table_[i] = 255 * Mix(shown, Smooth(0, 1, shown), contrast);
    }
  }

  float operator()(float light) const {
    const float place = std::min(std::sqrt(std::max(light, 0.0F)) * kPerRoot, static_cast<float>(kEntries - 2));
    const auto i = static_cast<std::size_t>(place);
    return Mix(table_[i], table_[i + 1], place - static_cast<float>(i));
  }

 private:
  static constexpr int kEntries = 4096;
  static constexpr float kPerRoot = 1200;
  std::array<float, kEntries> table_ = {};
};

std::uint8_t ToByte(float value) { return static_cast<std::uint8_t>(std::clamp(value + 0.5F, 0.0F, 255.0F)); }

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

class Compressor {
 public:
  Compressor() {
    // On an error it prints a message and ends the program, which suits a generator.
    info_.err = jpeg_std_error(&errors_);
    jpeg_create_compress(&info_);
  }
  ~Compressor() { jpeg_destroy_compress(&info_); }
  Compressor(const Compressor&) = delete;
  Compressor& operator=(const Compressor&) = delete;

  jpeg_compress_struct* operator->() { return &info_; }
  jpeg_compress_struct* Get() { return &info_; }

 private:
  jpeg_compress_struct info_ = {};
  jpeg_error_mgr errors_ = {};
};

}  // namespace

void AddGlow(Canvas& canvas, float threshold, float strength, int radius) {
  Canvas small = BrightParts(canvas, threshold);
  const int reach = std::max(1, radius / kShrink / 2);
  // Three running means come close to the bell curve of a real blur.
  for (int pass = 0; pass < 3; ++pass) {
    for (int y = 0; y < small.Height(); ++y)
      MeanAlong(small.Width(), reach, [&](int x) -> Colour& { return small.At(x, y); });
    for (int x = 0; x < small.Width(); ++x)
      MeanAlong(small.Height(), reach, [&](int y) -> Colour& { return small.At(x, y); });
  }
  InParallel(canvas.Height(), [&](int begin, int end) {
    for (int y = begin; y < end; ++y)
      for (int x = 0; x < canvas.Width(); ++x)
        canvas.At(x, y) +=
            strength * small.Sample((static_cast<float>(x) + 0.5F) / kShrink, (static_cast<float>(y) + 0.5F) / kShrink);
  });
}

std::vector<std::uint8_t> Develop(const Canvas& canvas, const FilmSettings& film) {
  const Curve curve(film.contrast);
  const auto width = static_cast<float>(canvas.Width()), height = static_cast<float>(canvas.Height());
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(canvas.Width()) * static_cast<std::size_t>(canvas.Height()) *
                                  3);
  InParallel(canvas.Height(), [&](int begin, int end) {
    std::size_t next = static_cast<std::size_t>(begin) * static_cast<std::size_t>(canvas.Width()) * 3;
    for (int y = begin; y < end; ++y) {
      for (int x = 0; x < canvas.Width(); ++x) {
        const float from_centre_x = static_cast<float>(x) / width - 0.5F;
        const float from_centre_y = static_cast<float>(y) / height - 0.5F;
        const float corner = 2 * (from_centre_x * from_centre_x + from_centre_y * from_centre_y);
        const Colour light = canvas.At(x, y) * (film.exposure * (1 - film.vignette * corner));
        // The mean of two random numbers is a triangle, the dither that leaves no pattern.
        const float grain = film.grain * (HashUnit(x, y, 71) + HashUnit(x, y, 72) - 1) * 1.4F;
        for (const float channel : {light.r, light.g, light.b}) bytes[next++] = ToByte(curve(channel) + grain);
      }
    }
  });
  return bytes;
}

void WriteJpeg(const std::string& path, int width, int height, const std::vector<std::uint8_t>& rgb, int quality) {
  const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "wb"));
  if (!file) throw std::runtime_error("can't write " + path);
  Compressor compressor;
  jpeg_stdio_dest(compressor.Get(), file.get());
  compressor->image_width = static_cast<JDIMENSION>(width);
  compressor->image_height = static_cast<JDIMENSION>(height);
  compressor->input_components = 3;
  compressor->in_color_space = JCS_RGB;
  jpeg_set_defaults(compressor.Get());
  jpeg_set_quality(compressor.Get(), quality, TRUE);
  jpeg_start_compress(compressor.Get(), TRUE);
  const std::size_t row_bytes = static_cast<std::size_t>(width) * 3;
  while (compressor->next_scanline < compressor->image_height) {
    // The library takes rows as writable and only reads them.
    auto* row = const_cast<JSAMPROW>(rgb.data() + compressor->next_scanline * row_bytes);
    jpeg_write_scanlines(compressor.Get(), &row, 1);
  }
  jpeg_finish_compress(compressor.Get());
}

}  // namespace quorvale::samples
