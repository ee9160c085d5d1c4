#include "bench_files.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>  // jpeglib.h needs it
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <utility>

#include <jpeglib.h>

#include "base/failure.h"

namespace quorvale {
namespace {

constexpr int kQuality = 90;

// Waves along one side of a picture.
std::vector<float> Waves(int length, int number) {
  std::vector<float> waves(static_cast<std::size_t>(length));
  for (int i = 0; i < length; ++i) {
    const double at = static_cast<double>(i) / length;
    waves[static_cast<std::size_t>(i)] =
        static_cast<float>(std::sin(at * (5 + number)) + 0.5 * std::sin(at * 61 + number) + 0.2 * std::sin(at * 977));
  }
  return waves;
}

// The sum of two random numbers is near a bell curve. Neighbours share one of them, as on a sensor.
class SensorNoise {
 public:
  explicit SensorNoise(int number) : generator_(static_cast<unsigned>(number)) {}

  float Next() {
    constexpr float kStrength = 15;
    const float last =
        std::exchange(die_, static_cast<float>(generator_()) / static_cast<float>(std::minstd_rand::max()));
    return (last + die_ - 1) * kStrength;
  }

 private:
  std::minstd_rand generator_;
  float die_ = 0.5F;
};

std::uint8_t Sample(float value) { return static_cast<std::uint8_t>(std::clamp(value, 0.0F, 255.0F)); }

class JpegWriter {
 public:
  JpegWriter(const std::string& path, const PictureSize& size) : file_(std::fopen(path.c_str(), "wb"), std::fclose) {
    if (!file_) throw Failure(FailureNumber::kUnwritable, "Can't write " + path, "bench");
    encoder_.err = jpeg_std_error(&errors_);
    jpeg_create_compress(&encoder_);
    jpeg_stdio_dest(&encoder_, file_.get());
    encoder_.image_width = static_cast<JDIMENSION>(size.width);
    encoder_.image_height = static_cast<JDIMENSION>(size.height);
    encoder_.input_components = 3;
    encoder_.in_color_space = JCS_RGB;
    jpeg_set_defaults(&encoder_);
    jpeg_set_quality(&encoder_, kQuality, TRUE);
    if (size.progressive) jpeg_simple_progression(&encoder_);
    jpeg_start_compress(&encoder_, TRUE);
  }
  ~JpegWriter() {
    jpeg_finish_compress(&encoder_);
    jpeg_destroy_compress(&encoder_);
  }
  JpegWriter(const JpegWriter&) = delete;
  JpegWriter& operator=(const JpegWriter&) = delete;

  void WriteRow(std::vector<std::uint8_t>& samples) {
    auto* row = samples.data();
    jpeg_write_scanlines(&encoder_, &row, 1);
  }

 private:
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
  jpeg_compress_struct encoder_{};
  jpeg_error_mgr errors_{};
};

void Make(const std::string& path, const PictureSize& size, int number) {
  const std::vector<float> across = Waves(size.width, number);
  const std::vector<float> down = Waves(size.height, number + 3);
  SensorNoise noise(number + 1);
  std::vector<std::uint8_t> samples(static_cast<std::size_t>(size.width) * 3);
  JpegWriter writer(path, size);
  for (const float row : down) {
    for (std::size_t x = 0; x < across.size(); ++x) {
      const float light = 120 + 30 * row * across[x] + noise.Next();
      samples[x * 3] = Sample(light + 25 * across[x]);
      samples[x * 3 + 1] = Sample(light + noise.Next() / 2);
      samples[x * 3 + 2] = Sample(light + 25 * row);
    }
    writer.WriteRow(samples);
  }
}

}  // namespace

std::string BuiltProgram(const std::string& name) {
  return std::filesystem::read_symlink("/proc/self/exe").replace_filename(name).string();
}

std::string BenchDirectory(const std::string& name) {
  std::string path = BuiltProgram("bench-files") + "/" + name;
  std::filesystem::create_directories(path);
  return path;
}

std::string DirectoryOfFiles(int count, int folders) {
  constexpr std::array<const char*, 10> kEndings = {".JPG", ".JPG", ".jpg",  ".JPG", ".txt",
                                                    ".JPG", ".jpg", ".jpeg", ".JPG", ".bmp"};
  constexpr int kFoldersBeside = 50;
  const std::string name =
      std::to_string(count) + "-files" + (folders > 0 ? "-in-" + std::to_string(folders) : std::string());
  std::string finished = BuiltProgram("bench-files") + "/" + name;
  if (std::filesystem::exists(finished)) return finished;
  const std::string unfinished = BenchDirectory(name + "-unfinished");
  for (int i = 0; i < count; ++i) {
    std::string directory = unfinished;
    if (folders > 0) {
      const int folder = i / (count / folders);
      directory += "/" + std::to_string(folder / kFoldersBeside) + "/" + std::to_string(folder);
      std::filesystem::create_directories(directory);
    }
    char file[32];
    std::snprintf(file, sizeof file, "/IMG_%06d%s", i, kEndings[static_cast<std::size_t>(i) % kEndings.size()]);
    std::ofstream{directory + file};
  }
  std::filesystem::rename(unfinished, finished);
  return finished;
}

void UseOwnSettings() {
  const std::string directory = BenchDirectory("settings");
  std::filesystem::remove_all(directory);
  setenv("XDG_CONFIG_HOME", directory.c_str(), 1);
}

std::string TestPicture(const PictureSize& size, int number) {
  const std::string name =
      std::to_string(size.width) + "x" + std::to_string(size.height) + (size.progressive ? "-progressive" : "");
  const std::string directory = BenchDirectory("pictures");
  std::string path = directory + "/" + name + "-" + std::to_string(number) + ".jpg";
  if (!std::filesystem::exists(path)) {
    const std::string unfinished = directory + "/unfinished.jpg";
    Make(unfinished, size, number);
    std::filesystem::rename(unfinished, path);
  }
  return path;
}

std::vector<std::string> TestPictures(const PictureSize& size, int count) {
  std::vector<std::string> paths;
  paths.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) paths.push_back(TestPicture(size, i));
  return paths;
}

}  // namespace quorvale
