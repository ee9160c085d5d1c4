#pragma once

#include <string>
#include <vector>

#include "platform/headless/memory_file_system.h"
#include "toolkit/picture.h"

namespace quorvale {

// Loads pictures from text files: "picture WIDTH HEIGHT RRGGBB ...", in pixels, with as many upright
// stripes of the same width as there are colours. Every other content is a damaged picture.
class TextPictureLoader : public PictureLoader {
 public:
  explicit TextPictureLoader(const MemoryFileSystem& files) : files_(files) {}

  std::shared_ptr<Picture> Load(const std::string& path, const PicturePlace& place) override;

  struct LoadCall {
    std::string path;
    bool loaded = false;
    // Where the picture was to be shown, in device pixels; empty where that was never asked.
    PixelRect box;
    PixelRect clip;
    float scale = 1;
  };
  // The loads so far, the failed ones included.
  std::vector<LoadCall> loads;

 private:
  const MemoryFileSystem& files_;
};

// The content of a file that loads as such a picture.
std::string PictureText(int width, int height, const std::vector<std::string>& colours);

}  // namespace quorvale
