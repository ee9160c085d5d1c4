#include "bench_files.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace quorvale {

std::string BuiltProgram(const std::string& name) {
  return std::filesystem::read_symlink("/proc/self/exe").replace_filename(name).string();
}

std::string BenchDirectory(const std::string& name) {
  std::string path = BuiltProgram("bench-files") + "/" + name;
  std::filesystem::create_directories(path);
  return path;
}

std::string DirectoryOfFiles(int count) {
  constexpr std::array<const char*, 10> kEndings = {".JPG", ".JPG", ".jpg",  ".JPG", ".txt",
                                                    ".JPG", ".jpg", ".jpeg", ".JPG", ".bmp"};
  const std::string name = std::to_string(count) + "-files";
  std::string finished = BuiltProgram("bench-files") + "/" + name;
  if (std::filesystem::exists(finished)) return finished;
  const std::string unfinished = BenchDirectory(name + "-unfinished");
  for (int i = 0; i < count; ++i) {
    char file[32];
    std::snprintf(file, sizeof file, "/IMG_%06d%s", i, kEndings[static_cast<std::size_t>(i) % kEndings.size()]);
    std::ofstream{unfinished + file};
  }
  std::filesystem::rename(unfinished, finished);
  return finished;
}

void UseOwnSettings() {
  const std::string directory = BenchDirectory("settings");
  std::filesystem::remove_all(directory);
  setenv("XDG_CONFIG_HOME", directory.c_str(), 1);
}

}  // namespace quorvale
