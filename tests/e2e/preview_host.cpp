// A window that stands for another program's: preview_host DEPTH X Y WIDTH HEIGHT. Prints its number once it
// is on the screen; lives until it is killed.

#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

xcb_visualid_t VisualOf(const xcb_screen_t& screen, int depth) {
  for (auto depths = xcb_screen_allowed_depths_iterator(&screen); depths.rem > 0; xcb_depth_next(&depths)) {
    const auto visuals = xcb_depth_visuals_iterator(depths.data);
    if (depths.data->depth == depth && visuals.rem > 0) return visuals.data->visual_id;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 6) return EXIT_FAILURE;
  std::array<int, 5> numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) numbers.at(i) = std::atoi(argv[i + 1]);
  const auto [depth, x, y, width, height] = numbers;

  xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
  if (xcb_connection_has_error(connection) != 0) return EXIT_FAILURE;
  const xcb_screen_t& screen = *xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
  const xcb_visualid_t visual = VisualOf(screen, depth);
  const xcb_colormap_t colours = xcb_generate_id(connection);
  xcb_create_colormap(connection, XCB_COLORMAP_ALLOC_NONE, colours, screen.root, visual);
  const xcb_window_t window = xcb_generate_id(connection);
  // A window of another depth than its parent's needs a border and colours of its own.
  const std::array<std::uint32_t, 5> values{0, 0, 1, XCB_EVENT_MASK_STRUCTURE_NOTIFY, colours};
  xcb_create_window(
      connection, static_cast<std::uint8_t>(depth), window, screen.root, static_cast<std::int16_t>(x),
      static_cast<std::int16_t>(y), static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height), 0,
      XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP,
      values.data());
  xcb_map_window(connection, window);
  xcb_flush(connection);
  while (xcb_generic_event_t* const event = xcb_wait_for_event(connection)) {
    if (event->response_type == 0) return EXIT_FAILURE;
    if (event->response_type == XCB_MAP_NOTIFY) {
      std::printf("%u\n", window);
      std::fflush(stdout);
    }
    std::free(event);
  }
  return EXIT_SUCCESS;
}
