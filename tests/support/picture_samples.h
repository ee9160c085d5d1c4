// Parts of sample pictures, and a screen for them.

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/picture.h"

namespace quorvale {

// A GIF file of one frame that lies at `part` of the canvas. Colours are places in the palette of 0xRRGGBB numbers;
// `clear` is transparent.
inline std::string GifFile(int width, int height, const PixelRect& part, const std::array<Pixel, 128>& palette,
                           int clear, const std::function<int(int x, int y)>& colour) {
  const auto number = [](int n) { return std::string{static_cast<char>(n & 0xFF), static_cast<char>(n >> 8)}; };
  std::string bytes = "GIF89a" + number(width) + number(height) + std::string("\xF6\0\0", 3);
  for (const Pixel pixel : palette) {
    bytes += {static_cast<char>(pixel >> 16U), static_cast<char>(pixel >> 8U), static_cast<char>(pixel)};
  }
  bytes += std::string("\x21\xF9\x04\x01\0\0", 6) + static_cast<char>(clear) + '\0';
  bytes += '\x2C' + number(part.left) + number(part.top) + number(part.width) + number(part.height);
  bytes += std::string("\0\x07", 2);
  // All codes are 8 bits wide, since the table is cleared before they would grow.
  std::string codes;
  for (int i = 0; i < part.width * part.height; ++i) {
    if (i % 100 == 0) codes += '\x80';
    codes += static_cast<char>(colour(i % part.width, i / part.width));
  }
  codes += '\x81';
  for (std::size_t at = 0; at < codes.size(); at += 255) {
    const std::string block = codes.substr(at, 255);
    bytes += static_cast<char>(block.size()) + block;
  }
  return bytes + '\0' + ';';
}

// A picture on a screen of one colour.
struct Screen {
  static constexpr Pixel kBackground = 0xFF204060;

  Screen(int screen_width, int screen_height, Pixel background = kBackground)
      : width(screen_width),
        height(screen_height),
        pixels(static_cast<std::size_t>(screen_width) * static_cast<std::size_t>(screen_height), background) {}

  PixelRect Bounds() const { return {0, 0, width, height}; }
  PixelView View() { return {pixels.data(), width, height, width}; }
  Pixel At(int x, int y) const { return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + x]; }

  int width;
  int height;
  std::vector<Pixel> pixels;
};

// A place that does not depend on the picture.
inline PicturePlace PlaceAt(const PixelRect& box, const PixelRect& clip) {
  return {[box](const TwipSize&) { return box; }, clip, 1};
}

// Used memory for one picture.
struct UsedMemory : PixelMemory {
  std::shared_ptr<Pixel[]> Take(std::size_t count) override {
    taken = std::make_unique<Pixel[]>(count);
    std::fill_n(taken.get(), count, 0xFFFFFFFF);
    return taken;
  }
  std::shared_ptr<Pixel[]> taken;
};

// Loads for that box on the screen and paints it.
inline std::shared_ptr<Picture> ShowBy(PictureLoader&& loader, const std::string& path, const PixelRect& box,
                                       Screen& screen) {
  const auto memory = std::make_shared<UsedMemory>();
  PicturePlace place = PlaceAt(box, screen.Bounds());
  place.memory = memory;
  auto picture = loader.Load(path, place);
  picture->Paint(screen.View(), box, screen.Bounds());
  if (const auto pixels = picture->Covering({screen.View().width, screen.View().height}, box)) {
    EXPECT_TRUE(std::equal(screen.pixels.begin(), screen.pixels.end(), pixels.get())) << path;
    EXPECT_EQ(pixels, memory->taken);
  }
  return picture;
}

}  // namespace quorvale
