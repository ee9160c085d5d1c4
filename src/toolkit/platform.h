#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "system/window_system.h"
#include "toolkit/bitmap.h"
#include "toolkit/file_dialog.h"
#include "toolkit/message_box.h"
#include "toolkit/units.h"

namespace quorvale {

class PictureLoader;
class Surface;
class TextPainter;
class WidgetFactory;

// What the toolkit asks of a platform. A platform implements this page; it calls back only through the
// event interfaces below, always on the program's one thread. The toolkit catches what handlers throw:
// no exception but `ProcessEnded` comes out of an event.

// What happens to a form's window.
class WindowEvents {
 public:
  virtual ~WindowEvents() = default;
  // `key` is the virtual key code where the platform knows one, else 0. Modifier keys count.
  virtual void OnKeyDown(int key) = 0;
  virtual void OnMouseDown() = 0;
  virtual void OnMouseMove() = 0;
  // The user asked the window to close. The toolkit decides.
  virtual void OnCloseRequested() = 0;
  // The user pressed F1.
  virtual void OnHelpRequested() = 0;
  // A saver window is no longer what the user has before him: a window of another program took the focus, or
  // this one was minimised or is out of sight. A box of this program over it and a screen locker's grab of the
  // keyboard are no such thing. Not told while a box is up; what still holds then is told when it closes.
  virtual void OnDeactivated() = 0;
  // The primary monitor of a saver window is another one, or its size has changed; `Platform::Screen` tells it.
  // Windows on other monitors are the platform's business. Not told while there is no monitor.
  virtual void OnScreenChanged() = 0;
};

// What happens to a picture box's window. Positions are in the toolkit's pixels.
class SurfaceEvents {
 public:
  virtual ~SurfaceEvents() = default;
  virtual void OnKeyDown(int key) = 0;
  virtual void OnMouseDown(int x, int y) = 0;
  virtual void OnMouseMove(int x, int y) = 0;
  // The device pixels to the toolkit's pixel changed.
  virtual void OnScaleChanged() = 0;
};

// A top-level window. Destroying it takes it off the screen; the toolkit never does that while one of
// the window's events is being delivered.
class WindowPeer {
 public:
  virtual ~WindowPeer() = default;
  virtual WindowHandle Handle() const = 0;
  virtual void SetCaption(const std::string& caption) = 0;
  // In the toolkit's pixels, from the corner of the primary monitor. A dialog's size is that of the area
  // inside its frame and below its menu bar.
  virtual void SetBounds(const PixelRect& bounds) = 0;
  virtual void SetVisible(bool visible) = 0;
  virtual void SetIcon(const Artwork& icon) = 0;
};

// The child window of a picture box. It presents the pixels of the toolkit's surface: what is dirty
// goes to the screen in the next pass of the event queue.
class SurfacePeer {
 public:
  virtual ~SurfacePeer() = default;
  virtual WindowHandle Handle() const = 0;
  // Device pixels to the toolkit's pixel.
  virtual float Scale() const = 0;
  // In the toolkit's pixels, in the form's window. The surface has its new size by then.
  virtual void SetBounds(const PixelRect& bounds) = 0;
  // The surface has become dirty.
  virtual void Invalidate() = 0;
  // Presents what is dirty now, without delivering any event.
  virtual void Present() = 0;
  virtual void TakeFocus() = 0;
};

class TimerPeer {
 public:
  virtual ~TimerPeer() = default;
  // Starts the countdown anew; `milliseconds` 0 stops it. It fires again and again until told otherwise.
  virtual void Set(int milliseconds) = 0;
};

// Reports chosen messages of one window.
class MessageHookPeer {
 public:
  virtual ~MessageHookPeer() = default;
  virtual void Watch(WindowHandle window) = 0;
  virtual void Report(int message) = 0;
};

// The pauses of one transition. Passes made through it take at least their nominal length.
class PacedRun {
 public:
  virtual ~PacedRun() = default;
  virtual void PumpEvents() = 0;
};

enum class WindowKind {
  kSaver,   // no border; while it shows, every other monitor is black and input there is the window's
  kHidden,  // loaded and never shown
  kDialog,  // a fixed dialog frame without minimise and maximise boxes
};

struct ScreenInfo {
  // The primary monitor, in the toolkit's pixels.
  int width = 0;
  int height = 0;
  // Device pixels to the toolkit's pixel.
  float scale = 1;
};

class Platform {
 public:
  virtual ~Platform() = default;

  virtual ScreenInfo Screen() = 0;

  // Windows start hidden. `events` outlives what is made.
  virtual std::unique_ptr<WindowPeer> CreateWindowPeer(WindowKind kind, WindowEvents& events) = 0;
  // `surface` outlives what is made.
  virtual std::unique_ptr<SurfacePeer> CreateSurfacePeer(WindowPeer& window, Surface& surface,
                                                         SurfaceEvents& events) = 0;
  virtual std::unique_ptr<TimerPeer> CreateTimerPeer(std::function<void()> fired) = 0;

  // `arrived` gets the number of a message that was to be reported.
  virtual std::unique_ptr<MessageHookPeer> CreateMessageHookPeer(std::function<void(int message)> arrived) = 0;

  virtual PictureLoader& Pictures() = 0;
  virtual TextPainter& Text() = 0;

  // Delivers all pending events, then returns without waiting.
  virtual void PumpEvents() = 0;
  // `surface` may vanish during the run.
  virtual std::unique_ptr<PacedRun> OpenPacedRun(SurfacePeer& surface) = 0;

  virtual WidgetFactory& Widgets() = 0;

  // Runs events until `window` is hidden. Meanwhile no other window of the program takes input.
  virtual void RunModal(WindowPeer& window) = 0;

  virtual MessageBoxAnswer ShowMessageBox(const MessageBox& box) = 0;
  // The chosen path; empty if the user cancelled. Multiple files have the form "directory\0name\0name", without a
  // final NUL.
  virtual std::string ShowFileDialog(WindowPeer& owner, const FileDialog& dialog) = 0;
  // The chosen colour, or `start` when the user cancelled.
  virtual Colour ShowColourDialog(WindowPeer& owner, Colour start) = 0;
  // The chosen directory's path, or empty when the user cancelled.
  virtual std::string BrowseForFolder(WindowPeer& owner, const std::string& title) = 0;
};

}  // namespace quorvale
