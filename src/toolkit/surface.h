#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "toolkit/bitmap.h"
#include "toolkit/dirty_region.h"
#include "toolkit/pixel_memory.h"
#include "toolkit/units.h"

namespace quorvale {

// The current pixels of a picture box, with the rasteriser that all platforms share. Coordinates are in device pixels.
// A pixel belongs to a shape if its centre is inside. A centre exactly on the edge counts at the right and bottom edge
// only, so that a bar of n pixels covers n. Only pixels whose colour changes become dirty. Shapes are clipped; a shape
// with a NaN coordinate is not drawn.
class Surface {
 public:
  Surface() = default;
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;

  // Where its pixels are kept from the next `Resize` on. Null for ordinary memory.
  void UseMemory(std::shared_ptr<PixelMemory> memory) { memory_ = std::move(memory); }
  const std::shared_ptr<PixelMemory>& Memory() const { return memory_; }

  // Sets the size and fills the surface; all of it becomes dirty. Fails with std::bad_alloc.
  void Resize(int width, int height, Pixel fill);

  int Width() const { return width_; }
  int Height() const { return height_; }
  PixelRect Bounds() const { return {0, 0, width_, height_}; }

  void FillRect(const PixelRect& rect, Pixel colour);

  // A straight line, `pen` pixels wide and centred on the line, with flat ends that reach half a pen
  // beyond it.
  void DrawLine(double x1, double y1, double x2, double y2, double pen, Pixel colour);

  // A disc of that radius, 0 or more: `fill` inside, and a ring of `outline`, `pen` pixels wide, centred
  // on its edge.
  void DrawCircle(double x, double y, double radius, double pen, Pixel outline, Pixel fill);

  // A filled dot `diameter` pixels across. It has at least the pixel that holds its centre.
  void DrawDot(double x, double y, double diameter, Pixel colour);

  // For painting pictures and text. After writing, call `Changed`.
  PixelView Pixels();

  // What the surface shows. Valid until it is drawn on or resized, or shows other pixels.
  ConstPixelView Seen() const { return {seen_ ? seen_.get() : pixels_.get(), width_, height_, width_}; }
  Pixel At(int x, int y) const { return Seen().Row(y)[x]; }

  // Shows `pixels`, as many as the surface has, row by row. They are read until the surface is drawn on, and copied
  // only if something of them stays then. All becomes dirty.
  void ShowPixels(std::shared_ptr<const Pixel[]> pixels);

  // Makes all of `rect` dirty.
  void Changed(const PixelRect& rect);

  // The one colour of all pixels in `rect`, which must be inside, as far as it is known without reading them.
  std::optional<Pixel> SolidColour(const PixelRect& rect) const;

  DirtyRegion& Dirty() { return dirty_; }

 private:
  // Pixels of a row that are known to have this colour.
  struct KnownRun {
    int left = 0;
    int right = 0;
    Pixel colour = 0;

    int Length() const { return right - left; }
    bool Covers(int from, int to, Pixel other) const { return colour == other && left <= from && to <= right; }
    bool Meets(int from, int to, Pixel other) const { return colour == other && from <= right && left <= to; }
    void Cut(int from, int to);
  };

  // What is known about a row without reading its pixels. Each step's shape mostly covers the one before and grows at
  // one or both sides, so this saves nearly all comparing and filling.
  struct KnownRow {
    KnownRun one;
    KnownRun other;
  };

  void DrawSlantedLine(double x1, double y1, double x2, double y2, double pen, Pixel colour);
  void CopySeen();
  Pixel* RowOf(int y) { return pixels_.get() + static_cast<std::ptrdiff_t>(y) * width_; }
  void FillSpan(int y, int left, int right, Pixel colour);
  void GrowLeft(KnownRun& known, int y, int left);
  void GrowRight(KnownRun& known, int y, int right);
  void FillUnknown(int y, int left, int right, Pixel colour);
  int FillMixed(int y, int left, int right, Pixel colour, int changed_from);

  std::shared_ptr<PixelMemory> memory_;
  std::shared_ptr<Pixel[]> pixels_;
  // What is shown instead of `pixels_`. That keeps what was drawn last: mostly the background, as the next picture
  // needs it.
  std::shared_ptr<const Pixel[]> seen_;
  // Of `pixels_`.
  std::vector<KnownRow> known_;
  DirtyRegion dirty_;
  int width_ = 0;
  int height_ = 0;
};

}  // namespace quorvale
