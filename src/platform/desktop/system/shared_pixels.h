#pragma once

#include <xcb/shm.h>
#include <xcb/xcb.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "toolkit/pixel_memory.h"
#include "toolkit/units.h"

namespace quorvale {

// Pixels that this process and the X server share (MIT-SHM 1.2), so that they come to the screen without a copy on this
// side. The memory that was given back last is kept for the next pixels: new pages from the kernel take a tenth of the
// time in which a photo of that size is decoded. So that it will do, all take as much as the most so far; what is not
// written to does not count. A window that shrinks keeps the larger memory.
class SharedPixels : public PixelMemory, public std::enable_shared_from_this<SharedPixels> {
 public:
  // For windows like `window`. Null if the server can't share memory with this process or stores colours otherwise.
  // The connection outlives the object and all its pixels.
  static std::shared_ptr<SharedPixels> For(xcb_connection_t* connection, std::uint32_t window);
  ~SharedPixels() override;
  SharedPixels(const SharedPixels&) = delete;
  SharedPixels& operator=(const SharedPixels&) = delete;

  // Waits until the server has read what was put from these pixels before.
  std::shared_ptr<Pixel[]> Take(std::size_t count) override;

  // Puts those parts of `pixels` where they belong in the window. The server reads them some time later; what is
  // drawn there meanwhile may be seen too early. False if they are not from here.
  bool Put(std::uint32_t window, const ConstPixelView& pixels, const std::vector<PixelRect>& parts) const;

 private:
  class Segment;

  SharedPixels(xcb_connection_t* connection, std::uint32_t window, std::uint8_t depth);
  // In `lent_`; its end if they are not from here.
  std::ptrdiff_t PlaceOf(const Pixel* pixels) const;
  void GiveBack(const Pixel* pixels);

  xcb_connection_t* connection_;
  xcb_gcontext_t context_;
  std::uint8_t depth_;
  std::size_t most_ = 0;
  std::vector<std::unique_ptr<Segment>> lent_;
  std::unique_ptr<Segment> spare_;
};

}  // namespace quorvale
