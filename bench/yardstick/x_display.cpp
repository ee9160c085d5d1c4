#include "yardstick/x_display.h"

#include <sys/ipc.h>
#include <sys/shm.h>
#include <sys/socket.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "base/failure.h"

namespace quorvale {
namespace {

struct Freed {
  void operator()(void* memory) const { std::free(memory); }
};

template <typename ReplyType>
std::unique_ptr<ReplyType, Freed> Owned(ReplyType* reply) {
  return std::unique_ptr<ReplyType, Freed>(reply);
}

}  // namespace

void RoundTrip(xcb_connection_t* connection) {
  Owned(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

XDisplay::XDisplay() : connection_(xcb_connect(nullptr, nullptr)) {
  if (xcb_connection_has_error(connection_) != 0) {
    xcb_disconnect(connection_);
    throw Failure(FailureNumber::kNotFound, "No X server to measure on", "bench");
  }
  screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
}

XDisplay::~XDisplay() { xcb_disconnect(connection_); }

pid_t XDisplay::Server() const {
  ucred peer{};
  socklen_t size = sizeof peer;
  getsockopt(xcb_get_file_descriptor(connection_), SOL_SOCKET, SO_PEERCRED, &peer, &size);
  return peer.pid;
}

void XDisplay::SetBackground(Pixel colour) {
  xcb_change_window_attributes(connection_, screen_->root, XCB_CW_BACK_PIXEL, &colour);
  xcb_clear_area(connection_, 0, screen_->root, 0, 0, 0, 0);
  RoundTrip(connection_);
}

Pixel XDisplay::Centre() const {
  const auto x = static_cast<std::int16_t>(Width() / 2);
  const auto y = static_cast<std::int16_t>(Height() / 2);
  const auto image = Owned(xcb_get_image_reply(
      connection_, xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, screen_->root, x, y, 1, 1, ~0U), nullptr));
  if (!image || xcb_get_image_data_length(image.get()) < 4) {
    throw Failure(FailureNumber::kInternal, "The screen can't be read", "bench");
  }
  return *reinterpret_cast<const Pixel*>(xcb_get_image_data(image.get())) | 0xFF000000U;
}

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
  shmctl(id, IPC_RMID, nullptr);  // is freed with its last user

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
