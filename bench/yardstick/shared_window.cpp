#include "yardstick/shared_window.h"

#include <sys/ipc.h>
#include <sys/shm.h>

#include <array>
#include <cstdint>

#include "base/failure.h"

namespace quorvale {

SharedWindow::SharedWindow(XDisplay& display)
    : display_(display),
      window_(xcb_generate_id(display.Connection())),
      context_(xcb_generate_id(display.Connection())),
      segment_(xcb_generate_id(display.Connection())) {
  xcb_connection_t* const connection = display.Connection();
  const std::size_t size = static_cast<std::size_t>(display.Width()) * display.Height() * sizeof(Pixel);
  const int id = shmget(IPC_PRIVATE, size, IPC_CREAT | 0600);
  void* const memory = id < 0 ? nullptr : shmat(id, nullptr, 0);
  if (memory == nullptr || reinterpret_cast<std::intptr_t>(memory) == -1) {
    throw Failure(FailureNumber::kInternal, "No memory to share", "bench");
  }
  pixels_ = static_cast<Pixel*>(memory);
  xcb_shm_attach(connection, segment_, static_cast<std::uint32_t>(id), 0);
  RoundTrip(connection);
  shmctl(id, IPC_RMID, nullptr);  // goes with its last user

  const xcb_screen_t& screen = display.Screen();
  constexpr std::array<std::uint32_t, 1> kUnmanaged{1};
  xcb_create_window(connection, XCB_COPY_FROM_PARENT, window_, screen.root, 0, 0, screen.width_in_pixels,
                    screen.height_in_pixels, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                    XCB_CW_OVERRIDE_REDIRECT, kUnmanaged.data());
  xcb_create_gc(connection, context_, window_, 0, nullptr);
}

SharedWindow::~SharedWindow() {
  xcb_shm_detach(display_.Connection(), segment_);
  xcb_destroy_window(display_.Connection(), window_);
  RoundTrip(display_.Connection());
  shmdt(pixels_);
}

void SharedWindow::SetVisible(bool visible) {
  if (visible) {
    constexpr std::array<std::uint32_t, 1> kAbove{XCB_STACK_MODE_ABOVE};
    xcb_configure_window(display_.Connection(), window_, XCB_CONFIG_WINDOW_STACK_MODE, kAbove.data());
    xcb_map_window(display_.Connection(), window_);
  } else {
    xcb_unmap_window(display_.Connection(), window_);
  }
  RoundTrip(display_.Connection());
}

void SharedWindow::Put() {
  const auto width = static_cast<std::uint16_t>(display_.Width());
  const auto height = static_cast<std::uint16_t>(display_.Height());
  xcb_shm_put_image(display_.Connection(), window_, context_, width, height, 0, 0, width, height, 0, 0,
                    display_.Screen().root_depth, XCB_IMAGE_FORMAT_Z_PIXMAP, 0, segment_, 0);
  RoundTrip(display_.Connection());
}

}  // namespace quorvale
