#pragma once

#include <string>
#include <vector>

namespace quorvale {

// The path of a program that was built together with the bench.
std::string BuiltProgram(const std::string& name);

// The bench's own directory of that name, beside the built programs. The next run uses its files again.
std::string BenchDirectory(const std::string& name);

// A directory of that many empty files, or a tree with as many in each of its folders. By their names nine in ten are
// pictures.
std::string DirectoryOfFiles(int count, int folders = 0);

// Gives this process and the programs that it starts a new, empty settings store.
void UseOwnSettings();

struct PictureSize {
  const char* name = "";
  int width = 0;
  int height = 0;
  bool progressive = false;
};

// Sizes of cameras, and one far beyond.
inline constexpr PictureSize kTestSizes[] = {
    {"2 MP", 1920, 1080},    {"12 MP", 4000, 3000}, {"24 MP", 6000, 4000}, {"24 MP progressive", 6000, 4000, true},
    {"100 MP", 11500, 8700},
};
inline constexpr const PictureSize& kCameraSize = kTestSizes[1];

// The path of a JPEG of that size, made when it is first asked for: soft shapes under the noise of a camera's
// sensor, so that a decoder has as much to do as with a photograph. The same number gives the same picture.
std::string TestPicture(const PictureSize& size, int number);

// Pictures 0 to `count` - 1 of that size.
std::vector<std::string> TestPictures(const PictureSize& size, int count);

}  // namespace quorvale
