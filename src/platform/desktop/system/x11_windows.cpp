#include "platform/desktop/system/x11_windows.h"

#include <bit>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quorvale {
namespace {

constexpr int kLevels = 3;
// The source of a request to activate. Window managers may ignore requests of other sources.
constexpr std::uint32_t kFromPager = 2;

using PropertyReply = Owned<xcb_get_property_reply_t>;

std::vector<xcb_window_t> Roots(xcb_connection_t* connection) {
  std::vector<xcb_window_t> roots;
  const xcb_setup_t* setup = xcb_get_setup(connection);
  if (setup == nullptr) return roots;
  for (xcb_screen_iterator_t i = xcb_setup_roots_iterator(setup); i.rem > 0; xcb_screen_next(&i)) {
    roots.push_back(i.data->root);
  }
  return roots;
}

// The window manager's properties are on the first screen's root window.
xcb_window_t FirstRoot(xcb_connection_t* connection) {
  const std::vector<xcb_window_t> roots = Roots(connection);
  return roots.empty() ? xcb_window_t{XCB_WINDOW_NONE} : roots.front();
}

std::vector<xcb_window_t> ChildrenOf(xcb_connection_t* connection, const std::vector<xcb_window_t>& parents) {
  std::vector<xcb_query_tree_cookie_t> cookies;
  cookies.reserve(parents.size());
  for (const xcb_window_t parent : parents) cookies.push_back(xcb_query_tree(connection, parent));

  std::vector<xcb_window_t> children;
  for (const xcb_query_tree_cookie_t cookie : cookies) {
    const Owned<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(connection, cookie, nullptr));
    if (!reply) continue;
    const xcb_window_t* first = xcb_query_tree_children(reply.get());
    children.insert(children.end(), first, first + xcb_query_tree_children_length(reply.get()));
  }
  return children;
}

bool Holds(const PropertyReply& reply, const std::string& text) {
  return reply && reply->format == 8 && reply->bytes_after == 0 &&
         std::string_view(static_cast<const char*>(xcb_get_property_value(reply.get())),
                          static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))) == text;
}

xcb_window_t FindTitle(xcb_connection_t* connection, const std::vector<xcb_window_t>& windows, xcb_atom_t net_wm_name,
                       const std::string& title) {
  // In units of four bytes; one more than the title needs, so that a longer one differs.
  const auto length = static_cast<std::uint32_t>(title.size() / 4 + 1);
  std::vector<xcb_get_property_cookie_t> cookies;
  cookies.reserve(windows.size() * 2);
  for (const xcb_window_t window : windows) {
    for (const xcb_atom_t name : {net_wm_name, xcb_atom_t{XCB_ATOM_WM_NAME}}) {
      cookies.push_back(xcb_get_property(connection, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, length));
    }
  }

  // All replies are read, so that none stays in the connection.
  xcb_window_t found = XCB_WINDOW_NONE;
  for (std::size_t i = 0; i < cookies.size(); ++i) {
    const PropertyReply reply(xcb_get_property_reply(connection, cookies[i], nullptr));
    if (found == XCB_WINDOW_NONE && Holds(reply, title)) found = windows[i / 2];
  }
  return found;
}

// Of a screen's own visual, in which windows are created unless they ask for another.
bool StoresColoursAsRgb(const xcb_screen_t& screen) {
  constexpr std::uint32_t kRed = 0xFF0000;
  constexpr std::uint32_t kBlue = 0xFF;
  for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem > 0; xcb_depth_next(&depth)) {
    for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem > 0; xcb_visualtype_next(&visual)) {
      if (visual.data->visual_id == screen.root_visual)
        return visual.data->red_mask == kRed && visual.data->blue_mask == kBlue;
    }
  }
  return false;
}

}  // namespace

xcb_atom_t Atom(xcb_connection_t* connection, std::string_view name) {
  const xcb_intern_atom_cookie_t cookie =
      xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
  const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

xcb_window_t WindowProperty(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t name) {
  const xcb_get_property_cookie_t cookie = xcb_get_property(connection, 0, window, name, XCB_ATOM_WINDOW, 0, 1);
  const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection, cookie, nullptr));
  if (!reply || reply->format != 32 || reply->value_len == 0) return XCB_WINDOW_NONE;
  return *static_cast<const xcb_window_t*>(xcb_get_property_value(reply.get()));
}

std::uint32_t FindTopLevelByTitle(xcb_connection_t* connection, const std::string& title) {
  const xcb_atom_t net_wm_name = Atom(connection, "_NET_WM_NAME");
  std::vector<xcb_window_t> windows = Roots(connection);
  // All requests of a level are sent before the first reply is read. So there are only a few round trips, however many
  // windows there are.
  for (int level = 0; level < kLevels && !windows.empty(); ++level) {
    windows = ChildrenOf(connection, windows);
    if (const xcb_window_t found = FindTitle(connection, windows, net_wm_name, title)) return found;
  }
  return XCB_WINDOW_NONE;
}

std::uint32_t ActiveWindow(xcb_connection_t* connection) {
  return WindowProperty(connection, FirstRoot(connection), Atom(connection, "_NET_ACTIVE_WINDOW"));
}

bool WindowExists(xcb_connection_t* connection, std::uint32_t window) {
  int width = 0;
  int height = 0;
  return ReadWindowSize(connection, window, width, height);
}

bool ReadWindowSize(xcb_connection_t* connection, std::uint32_t window, int& width, int& height) {
  const xcb_get_geometry_cookie_t cookie = xcb_get_geometry(connection, window);
  const Owned<xcb_get_geometry_reply_t> reply(xcb_get_geometry_reply(connection, cookie, nullptr));
  if (reply == nullptr) return false;
  width = reply->width;
  height = reply->height;
  return true;
}

bool ReadWindowPlace(xcb_connection_t* connection, std::uint32_t window, int& x, int& y) {
  const xcb_get_geometry_cookie_t asked = xcb_get_geometry(connection, window);
  const Owned<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(connection, asked, nullptr));
  if (geometry == nullptr) return false;
  const xcb_translate_coordinates_cookie_t cookie = xcb_translate_coordinates(connection, window, geometry->root, 0, 0);
  const Owned<xcb_translate_coordinates_reply_t> reply(xcb_translate_coordinates_reply(connection, cookie, nullptr));
  if (reply == nullptr) return false;
  x = reply->dst_x;
  y = reply->dst_y;
  return true;
}

bool IsViewable(xcb_connection_t* connection, std::uint32_t window) {
  const xcb_get_window_attributes_cookie_t cookie = xcb_get_window_attributes(connection, window);
  const Owned<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(connection, cookie, nullptr));
  return reply != nullptr && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

bool Reparent(xcb_connection_t* connection, std::uint32_t window, std::uint32_t parent) {
  const xcb_void_cookie_t cookie = xcb_reparent_window_checked(connection, window, parent, 0, 0);
  const Owned<xcb_generic_error_t> error(xcb_request_check(connection, cookie));
  return error == nullptr;
}

bool FillRectangles(xcb_connection_t* connection, std::uint32_t window, const std::vector<xcb_rectangle_t>& rects,
                    std::uint32_t colour) {
  if (!StoresColoursAsRgb(*xcb_setup_roots_iterator(xcb_get_setup(connection)).data)) return false;
  const xcb_gcontext_t context = xcb_generate_id(connection);
  xcb_create_gc(connection, context, window, XCB_GC_FOREGROUND, &colour);
  xcb_poly_fill_rectangle(connection, window, context, static_cast<std::uint32_t>(rects.size()), rects.data());
  xcb_free_gc(connection, context);
  xcb_flush(connection);
  return true;
}

bool StoresPixelsAsRgb(xcb_connection_t* connection, std::uint8_t depth) {
  const xcb_setup_t* const setup = xcb_get_setup(connection);
  const auto order = std::endian::native == std::endian::little ? XCB_IMAGE_ORDER_LSB_FIRST : XCB_IMAGE_ORDER_MSB_FIRST;
  if (setup->image_byte_order != order || !StoresColoursAsRgb(*xcb_setup_roots_iterator(setup).data)) return false;
  for (auto format = xcb_setup_pixmap_formats_iterator(setup); format.rem > 0; xcb_format_next(&format)) {
    if (format.data->depth == depth) return depth >= 24 && format.data->bits_per_pixel == 32;
  }
  return false;
}

void PaintBlack(xcb_connection_t* connection, std::uint32_t window) {
  const std::uint32_t black = 0;
  xcb_change_window_attributes(connection, window, XCB_CW_BACK_PIXEL, &black);
  xcb_clear_area(connection, 0, window, 0, 0, 0, 0);
  xcb_flush(connection);
}

void ShowOnAllDesktops(xcb_connection_t* connection, std::uint32_t window) {
  const std::uint32_t all = 0xFFFFFFFF;
  xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, Atom(connection, "_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL,
                      32, 1, &all);
}

std::uint32_t FocusedWindow(xcb_connection_t* connection) {
  const xcb_get_input_focus_cookie_t cookie = xcb_get_input_focus(connection);
  const Owned<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(connection, cookie, nullptr));
  const bool is_a_programs = reply && reply->focus != XCB_INPUT_FOCUS_NONE &&
                             reply->focus != XCB_INPUT_FOCUS_POINTER_ROOT && reply->focus != FirstRoot(connection);
  return is_a_programs ? reply->focus : std::uint32_t{XCB_WINDOW_NONE};
}

bool IsOwnWindow(xcb_connection_t* connection, std::uint32_t window) {
  const xcb_setup_t* const setup = xcb_get_setup(connection);
  return setup != nullptr && (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

void TakeFocus(xcb_connection_t* connection, std::uint32_t window) {
  xcb_set_input_focus(connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
  xcb_flush(connection);
}

// X has no request for this, so try a grab.
bool IsKeyboardGrabbed(xcb_connection_t* connection) {
  const xcb_grab_keyboard_cookie_t cookie = xcb_grab_keyboard(connection, 0, FirstRoot(connection), XCB_CURRENT_TIME,
                                                              XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
  const Owned<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(connection, cookie, nullptr));
  if (reply && reply->status == XCB_GRAB_STATUS_SUCCESS) {
    xcb_ungrab_keyboard(connection, XCB_CURRENT_TIME);
    xcb_flush(connection);
    return false;
  }
  return reply != nullptr;
}

void ActivateWindow(xcb_connection_t* connection, std::uint32_t window) {
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = window;
  message.type = Atom(connection, "_NET_ACTIVE_WINDOW");
  message.data.data32[0] = kFromPager;
  xcb_send_event(connection, 0, FirstRoot(connection),
                 XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                 reinterpret_cast<const char*>(&message));
  xcb_flush(connection);
}

}  // namespace quorvale
