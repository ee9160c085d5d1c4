#pragma once

#include <string>
#include <vector>

#include "platform/headless/memory_file_system.h"
#include "toolkit/picture.h"
#include "toolkit/platform.h"

namespace quorvale {

// Text with fixed metrics: a character is half an em wide and a line 1.2 em high, rounded to whole pixels, at 96 dots
// per inch. Every character except the blank is drawn as a solid block, one pixel narrower and lower than its cell.
class BlockTextPainter : public TextPainter {
 public:
  PixelRect Measure(const std::string& text, const Font& font, float scale) override;
  PixelRect Draw(const PixelView& target, int left, int top, const std::string& text, const Font& font, Colour colour,
                 float scale) override;
};

// Loads pictures from text files: "picture WIDTH HEIGHT RRGGBB ...", in pixels, with one vertical stripe per colour.
// All stripes have the same width. "taken DATE" may follow. Any other content is a damaged picture.
class TextPictureLoader : public PictureLoader {
 public:
  explicit TextPictureLoader(const MemoryFileSystem& files) : files_(files) {}

  std::shared_ptr<Picture> Load(const std::string& path, const PicturePlace& place) override;

  struct LoadCall {
    std::string path;
    bool loaded = false;
    // The place of the picture in device pixels; empty if the loader did not ask for it.
    PixelRect box;
    PixelRect clip;
    float scale = 1;
  };
  // All loads so far, including failed ones.
  std::vector<LoadCall> loads;
  // How often each load lets events arrive.
  int waits = 0;

 private:
  const MemoryFileSystem& files_;
};

// The content of a file that loads as such a picture.
std::string PictureText(int width, int height, const std::vector<std::string>& colours);

}  // namespace quorvale
