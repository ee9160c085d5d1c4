#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// Requests to an X server about windows of any program. The caller owns the connection. After an error, such as a
// window or a server that is gone, the result is as if nothing was found.
namespace quorvale {

struct FreeReply {
  void operator()(void* reply) const { std::free(reply); }
};

// Owns a reply or an error of the X server; may be null.
template <typename Reply>
using Owned = std::unique_ptr<Reply, FreeReply>;

// The server's number for a name; XCB_ATOM_NONE if the server is gone.
xcb_atom_t Atom(xcb_connection_t* connection, std::string_view name);

// The window in the property `name` of `window`, or XCB_WINDOW_NONE.
xcb_window_t WindowProperty(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t name);

// The window whose title, by either of its name properties, is exactly `title`, or 0. It need not be mapped. Searches
// the top-level windows of all screens and two levels below them, because window managers add frames.
std::uint32_t FindTopLevelByTitle(xcb_connection_t* connection, const std::string& title);

// The window that the window manager reports as active; 0 without a manager.
std::uint32_t ActiveWindow(xcb_connection_t* connection);

bool WindowExists(xcb_connection_t* connection, std::uint32_t window);

// A window's size in pixels. False if there is no such window.
bool ReadWindowSize(xcb_connection_t* connection, std::uint32_t window, int& width, int& height);

// The position of the window's corner on its screen. False if there is no such window.
bool ReadWindowPlace(xcb_connection_t* connection, std::uint32_t window, int& x, int& y);

// Whether the window and all its parents are mapped.
bool IsViewable(xcb_connection_t* connection, std::uint32_t window);

// Makes a window a child of another, at its corner. False if one of them is gone.
bool Reparent(xcb_connection_t* connection, std::uint32_t window, std::uint32_t parent);

// Fills rectangles of the window, in pixels, with a colour 0xRRGGBB. False if the screen stores colours otherwise.
bool FillRectangles(xcb_connection_t* connection, std::uint32_t window, const std::vector<xcb_rectangle_t>& rects,
                    std::uint32_t colour);

// Whether a window of that depth with the screen's usual colours has pixels of 32 bits, 0xRRGGBB in the byte order of
// this machine.
bool StoresPixelsAsRgb(xcb_connection_t* connection, std::uint8_t depth);

// Gives the window a black background and paints it.
void PaintBlack(xcb_connection_t* connection, std::uint32_t window);

// Asks the window manager to show the window on all desktops. Call it before the window is mapped.
void ShowOnAllDesktops(xcb_connection_t* connection, std::uint32_t window);

// The window that the server sends keys to; 0 if it is none of any program.
std::uint32_t FocusedWindow(xcb_connection_t* connection);

// Whether the window was created through this connection.
bool IsOwnWindow(xcb_connection_t* connection, std::uint32_t window);

// Gives the window the focus without the window manager.
void TakeFocus(xcb_connection_t* connection, std::uint32_t window);

// Whether another program has grabbed the keyboard. Releases a grab of this program.
bool IsKeyboardGrabbed(xcb_connection_t* connection);

// Asks the window manager to raise the window and give it the focus.
void ActivateWindow(xcb_connection_t* connection, std::uint32_t window);

}  // namespace quorvale
