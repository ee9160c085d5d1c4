#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <string>

// Questions to an X server about windows of any program. The connection stays the caller's. What goes wrong,
// a window that vanishes on the way or a server that is gone, counts as nothing found.
namespace quorvale {

// The window with exactly that title, by either of its names, or 0. It need not be mapped. The tops of all
// screens are looked at, and two levels below, since window managers put frames around the windows.
std::uint32_t FindTopLevelByTitle(xcb_connection_t* connection, const std::string& title);

// The window that has the focus, as the window manager tells; 0 without one.
std::uint32_t ActiveWindow(xcb_connection_t* connection);

bool WindowExists(xcb_connection_t* connection, std::uint32_t window);

// A window's size in pixels; false when there is no such window.
bool ReadWindowSize(xcb_connection_t* connection, std::uint32_t window, int& width, int& height);

// Where the window's corner lies on its screen. False when there is no such window.
bool ReadWindowPlace(xcb_connection_t* connection, std::uint32_t window, int& x, int& y);

// Whether the window and all that hold it are mapped.
bool IsViewable(xcb_connection_t* connection, std::uint32_t window);

// Makes a window a child of another, at its corner. False when one of them is gone.
bool Reparent(xcb_connection_t* connection, std::uint32_t window, std::uint32_t parent);

// Makes the window black, now and wherever it comes into sight.
void PaintBlack(xcb_connection_t* connection, std::uint32_t window);

// Has the window manager show the window on all of its desktops. Before the window is mapped.
void ShowOnAllDesktops(xcb_connection_t* connection, std::uint32_t window);

// The window that gets the keys, as the server tells; 0 where none of any program does.
std::uint32_t FocusedWindow(xcb_connection_t* connection);

// Whether the window was made through this connection.
bool IsOwnWindow(xcb_connection_t* connection, std::uint32_t window);

// Gives the window the focus past the window manager.
void TakeFocus(xcb_connection_t* connection, std::uint32_t window);

// Whether another program has grabbed the keyboard. Not to be asked while this one has.
bool IsKeyboardGrabbed(xcb_connection_t* connection);

// Asks the window manager to bring the window forward and give it the focus.
void ActivateWindow(xcb_connection_t* connection, std::uint32_t window);

}  // namespace quorvale
