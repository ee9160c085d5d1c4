#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include "toolkit/bitmap.h"

namespace quorvale {

// Memory that a platform can show without copying it first. A surface keeps its pixels there, and the pictures on it
// do, too.
class PixelMemory {
 public:
  virtual ~PixelMemory() = default;

  // That many pixels of any value. Null if there are none; ordinary memory will do then.
  virtual std::shared_ptr<Pixel[]> Take(std::size_t count) = 0;
};

// Of `memory`, which may be null, or ordinary ones. Fails with std::bad_alloc.
inline std::shared_ptr<Pixel[]> TakePixels(PixelMemory* memory, std::size_t count) {
  auto pixels = memory != nullptr ? memory->Take(count) : nullptr;
  return pixels ? std::move(pixels) : std::make_unique_for_overwrite<Pixel[]>(count);
}

}  // namespace quorvale
