// Makes the pictures and sounds that the program brings along: make_samples DIRECTORY

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <vector>

#include "picture/develop.h"
#include "scenes/scenes.h"
#include "sound/sounds.h"

namespace quorvale::samples {
namespace {

void Save(const std::filesystem::path& path, const Scene& scene) {
  constexpr int kQuality = 75;
  WriteJpeg(path.string(), scene.canvas.Width(), scene.canvas.Height(), Develop(scene.canvas, scene.film), kQuality);
}

void Save(const std::filesystem::path& path, const std::vector<float>& sound) {
  std::ofstream file(path, std::ios::binary);
  if (!(file << WavBytes(sound) << std::flush)) throw std::runtime_error("can't write " + path.string());
}

void MakeAll(const std::filesystem::path& directory) {
  std::filesystem::create_directories(directory);
  Save(directory / "Sample1.jpg", RenderDawnLake());
  Save(directory / "Sample2.jpg", RenderAuroraFjord());
  Save(directory / "Sample3.jpg", RenderDewLeaf());
  Save(directory / "Camera.wav", CameraSound());
  Save(directory / "SlideProjector.wav", SlideProjectorSound());
}

}  // namespace
}  // namespace quorvale::samples

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: make_samples DIRECTORY\n";
    return 2;
  }
  try {
    quorvale::samples::MakeAll(argv[1]);
  } catch (const std::exception& failure) {
    std::cerr << "make_samples: " << failure.what() << '\n';
    return 1;
  }
  return 0;
}
