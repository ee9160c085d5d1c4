#include "platform/desktop/system/shared_pixels.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <vector>

#include "desktop/x_server.h"
#include "platform/desktop/system/x11_windows.h"

namespace quorvale {
namespace {

constexpr int kWindowWidth = 8;
constexpr int kWindowHeight = 4;
constexpr std::size_t kWindowPixels = std::size_t{kWindowWidth} * kWindowHeight;

xcb_window_t ShowWindow(xcb_connection_t* connection) {
  const xcb_screen_t& screen = *xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
  const xcb_window_t window = xcb_generate_id(connection);
  xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen.root, 0, 0, kWindowWidth, kWindowHeight, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL, &screen.black_pixel);
  xcb_map_window(connection, window);
  return window;
}

Pixel OnScreen(xcb_connection_t* connection, xcb_window_t window, std::int16_t x, std::int16_t y) {
  const Owned<xcb_get_image_reply_t> image(xcb_get_image_reply(
      connection, xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, x, y, 1, 1, ~0U), nullptr));
  return image ? *reinterpret_cast<const Pixel*>(xcb_get_image_data(image.get())) & 0xFFFFFFU : ~0U;
}

TEST(SharedPixels, PutTheirPartsAndLeaveTheirMemoryToTheNext) {
  const XServer server;
  if (!server.Runs()) GTEST_SKIP() << "Xvfb is not installed";
  const auto connection = server.Connect();
  const xcb_window_t window = ShowWindow(connection.get());
  const auto memory = SharedPixels::For(connection.get(), window);
  ASSERT_NE(memory, nullptr);
  auto pixels = memory->Take(kWindowPixels);
  const ConstPixelView view{pixels.get(), kWindowWidth, kWindowHeight, kWindowWidth};
  std::fill_n(pixels.get(), kWindowPixels, 0xFFFF0000);
  pixels[kWindowWidth + 2] = 0xFF0000FF;
  EXPECT_TRUE(memory->Put(window, view, {{2, 1, 3, 2}, {0, 3, 1, 1}}));
  for (const auto& [x, y, colour] :
       {std::tuple(2, 1, 0xFFU), {4, 2, 0xFF0000U}, {0, 3, 0xFF0000U}, {1, 1, 0U}, {5, 1, 0U}, {4, 3, 0U}}) {
    EXPECT_EQ(OnScreen(connection.get(), window, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y)), colour)
        << x << ' ' << y;
  }

  auto next = memory->Take(kWindowPixels);
  EXPECT_NE(next.get(), view.pixels);
  pixels.reset();
  EXPECT_FALSE(memory->Put(window, view, {{0, 0, 1, 1}}));
  pixels = memory->Take(1);
  EXPECT_EQ(pixels[0], 0xFFFF0000) << "the memory is new";
  pixels.reset();
  pixels = memory->Take(100 * kWindowPixels);
  std::fill_n(pixels.get(), 100 * kWindowPixels, 0U);

  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit small{.rlim_cur = kWindowPixels, .rlim_max = limit.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_EQ(memory->Take(kWindowPixels), nullptr);
  setrlimit(RLIMIT_FSIZE, &limit);
}

TEST(SharedPixels, AreNotThereWhereTheServerSharesNoMemory) {
  const XServer server({"-extension", "MIT-SHM"});
  if (!server.Runs()) GTEST_SKIP() << "Xvfb is not installed";
  const auto connection = server.Connect();
  EXPECT_EQ(SharedPixels::For(connection.get(), ShowWindow(connection.get())), nullptr);
}

}  // namespace
}  // namespace quorvale
