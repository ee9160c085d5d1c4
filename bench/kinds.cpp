// Pictures of the further kinds beside the least program for each library, and what the conversion of colours costs.

#include <jxl/decode_cxx.h>
#include <jxl/thread_parallel_runner_cxx.h>
#include <libheif/heif.h>
#include <tiffio.h>
#include <webp/decode.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "bench_files.h"
#include "groups.h"
#include "measure.h"
#include "platform/desktop/pictures/colour_profile.h"
#include "platform/desktop/pictures/picture_loader.h"
#include "yardstick/yardstick.h"

namespace quorvale {
namespace {

constexpr int kShownWidth = 1920;
constexpr int kShownHeight = 1080;

using Bytes = std::vector<std::uint8_t>;

Bytes ReadBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void DecodeWebp(const std::string& path) {
  const Bytes bytes = ReadBytes(path);
  WebPDecoderConfig config;
  WebPInitDecoderConfig(&config);
  config.options.use_threads = 1;
  config.options.use_scaling = 1;
  config.options.scaled_width = kShownWidth;
  config.options.scaled_height = kShownHeight;
  config.output.colorspace = MODE_BGRA;
  WebPDecode(bytes.data(), bytes.size(), &config);
  WebPFreeDecBuffer(&config.output);
}

void DecodeHeif(const std::string& path) {
  heif_context* const context = heif_context_alloc();
  heif_context_read_from_file(context, path.c_str(), nullptr);
  heif_image_handle* handle = nullptr;
  heif_context_get_primary_image_handle(context, &handle);
  heif_image* image = nullptr;
  heif_decode_image(handle, &image, heif_colorspace_RGB, heif_chroma_interleaved_RGB, nullptr);
  heif_image_release(image);
  heif_image_handle_release(handle);
  heif_context_free(context);
}

void DecodeJxl(const std::string& path) {
  const Bytes bytes = ReadBytes(path);
  const auto runner = JxlThreadParallelRunnerMake(nullptr, JxlThreadParallelRunnerDefaultNumWorkerThreads());
  const auto decoder = JxlDecoderMake(nullptr);
  JxlDecoderSubscribeEvents(decoder.get(), JXL_DEC_FULL_IMAGE);
  JxlDecoderSetParallelRunner(decoder.get(), JxlThreadParallelRunner, runner.get());
  JxlDecoderSetInput(decoder.get(), bytes.data(), bytes.size());
  JxlDecoderCloseInput(decoder.get());
  const JxlPixelFormat format{4, JXL_TYPE_UINT8, JXL_NATIVE_ENDIAN, 0};
  Bytes pixels;
  while (JxlDecoderProcessInput(decoder.get()) == JXL_DEC_NEED_IMAGE_OUT_BUFFER) {
    std::size_t size = 0;
    JxlDecoderImageOutBufferSize(decoder.get(), &format, &size);
    pixels.resize(size);
    JxlDecoderSetImageOutBuffer(decoder.get(), &format, pixels.data(), size);
  }
}

void DecodeTiff(const std::string& path) {
  TIFF* const tiff = TIFFOpen(path.c_str(), "r");
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &width);
  TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &height);
  std::vector<std::uint32_t> pixels(std::size_t{width} * height);
  TIFFReadRGBAImageOriented(tiff, width, height, pixels.data(), ORIENTATION_TOPLEFT, 0);
  TIFFClose(tiff);
}

void WriteTiff(const std::string& from, const std::string& path) {
  JpegRows jpeg(from);
  jpeg.Start(1);
  TIFF* const tiff = TIFFOpen(path.c_str(), "w");
  TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, jpeg.Width());
  TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, jpeg.Height());
  TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
  TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 3);
  TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
  TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
  TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_LZW);
  TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, 32);
  std::vector<Pixel> row(static_cast<std::size_t>(jpeg.Width()));
  Bytes samples(row.size() * 3);
  for (int y = 0; y < jpeg.Height(); ++y) {
    jpeg.Read(row.data());
    for (std::size_t i = 0; i < samples.size(); ++i) {
      samples[i] = static_cast<std::uint8_t>(row[i / 3] >> (16U - 8U * (i % 3)));
    }
    TIFFWriteScanline(tiff, samples.data(), static_cast<std::uint32_t>(y), 0);
  }
  TIFFClose(tiff);
}

// The same photo with a profile of Display P3.
void WriteProfiled(const std::string& from, const std::string& path) {
  const Bytes profile = ColourProfile::OfNumbers(12, 13);
  const std::size_t length = profile.size() + 16;
  Bytes bytes{0xFF, 0xD8, 0xFF, 0xE2, static_cast<std::uint8_t>(length >> 8U), static_cast<std::uint8_t>(length)};
  for (const char letter : std::string("ICC_PROFILE")) bytes.push_back(static_cast<std::uint8_t>(letter));
  bytes.insert(bytes.end(), {0, 1, 1});
  bytes.insert(bytes.end(), profile.begin(), profile.end());
  const Bytes plain = ReadBytes(from);
  bytes.insert(bytes.end(), plain.begin() + 2, plain.end());
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

struct Kind {
  const char* name;
  // A shell's command that makes the second path of the first.
  const char* command;
  void (*decode)(const std::string& path);
};

constexpr Kind kKinds[] = {
    {"webp", R"(cwebp -quiet -m 2 -q 85 "$1" -o "$2")", DecodeWebp},
    {"heic", R"(heif-enc -q 60 -p preset=ultrafast "$1" -o "$2")", DecodeHeif},
    {"avif", R"(heif-enc -A -q 60 -p speed=9 "$1" -o "$2")", DecodeHeif},
    {"jxl", R"(cjxl --quiet -j 0 -e 3 "$1" "$2")", DecodeJxl},
};

// Empty if the encoder is not installed.
std::string MadeBy(const Kind& kind) {
  std::string path = BenchDirectory("kinds") + "/12." + kind.name;
  if (std::filesystem::exists(path)) return path;
  const std::string command = "set -- '" + TestPicture(kCameraSize, 0) + "' '" + path + "'; " + kind.command;
  return std::system((command + " >/dev/null 2>&1").c_str()) == 0 ? path : "";  // NOLINT(cert-env33-c): a tool's own
}

double Load(const std::string& path) {
  const PixelRect box{0, 0, kShownWidth, kShownHeight};
  return MillisecondsOf([&] {
    DesktopPictureLoader().Load(path,
                                {.box = [&](const TwipSize& /*natural*/) { return box; }, .clip = box, .scale = 1});
  });
}

}  // namespace

void MeasureKinds(Bench& bench) {
  const int rounds = bench.quick ? 3 : 9;
  bench.report.Begin("12 MP of the further kinds, loaded for 1920x1080, ms", {{"ours"}, {"library"}, {"ratio", 2}});
  const auto row = [&](const char* name, const std::string& path, void (*decode)(const std::string&)) {
    const std::vector<double> t =
        AlternatingMedians(rounds, {[&] { return Load(path); }, [&] { return MillisecondsOf([&] { decode(path); }); }});
    bench.report.Row(name, {t[0], t[1], t[0] / t[1]});
  };
  for (const Kind& kind : kKinds) {
    if (const std::string path = MadeBy(kind); !path.empty()) row(kind.name, path, kind.decode);
  }
  const std::string tiff = BenchDirectory("kinds") + "/12.tif";
  WriteTiff(TestPicture(kCameraSize, 0), tiff);
  row("tiff", tiff, DecodeTiff);
  Report::Remark("library: the least program, WebP to scale, the others whole. A kind needs its encoder: webp,");
  Report::Remark("libheif-examples, libjxl-tools.");

  bench.report.Begin("A JPEG of 12 MP without and with a profile of Display P3, ms", {{"sRGB"}, {"P3"}, {"ratio", 2}});
  const std::string plain = TestPicture(kCameraSize, 0);
  const std::string profiled = BenchDirectory("kinds") + "/p3.jpg";
  WriteProfiled(plain, profiled);
  const std::vector<double> t =
      AlternatingMedians(3 * rounds, {[&] { return Load(plain); }, [&] { return Load(profiled); }});
  bench.report.Row("1920x1080", {t[0], t[1], t[1] / t[0]});
}

}  // namespace quorvale
