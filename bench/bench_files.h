#pragma once

#include <string>
#include <vector>

namespace quorvale {

// The path of the program of that name that was built together with the bench.
std::string BuiltProgram(const std::string& name);

// A directory of the bench's own, beside the built programs. What lies there serves the next run too.
std::string BenchDirectory(const std::string& name);

// A directory with that many files: pictures by their names, and one other in ten.
std::string DirectoryOfFiles(int count);

// Makes this process and the programs that it starts keep their settings in a new store of the bench's own.
void UseOwnSettings();

struct PictureSize {
  const char* name = "";
  int width = 0;
  int height = 0;
  bool progressive = false;
};

// What cameras make, and made ten times as large.
inline constexpr PictureSize kTestSizes[] = {
    {"2 MP", 1920, 1080},    {"12 MP", 4000, 3000}, {"24 MP", 6000, 4000}, {"24 MP progressive", 6000, 4000, true},
    {"100 MP", 11500, 8700},
};
inline constexpr const PictureSize& kCameraSize = kTestSizes[1];

// The path of a JPEG of that size, made when it is first asked for: soft shapes under the noise of a camera's
// sensor, so that a decoder has as much to do as with a photograph. The same number gives the same picture.
std::string TestPicture(const PictureSize& size, int number);

// Several of a size.
std::vector<std::string> TestPictures(const PictureSize& size, int count);

}  // namespace quorvale
