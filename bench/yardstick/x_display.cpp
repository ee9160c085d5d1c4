#include "yardstick/x_display.h"

#include <sys/socket.h>

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

}  // namespace quorvale
