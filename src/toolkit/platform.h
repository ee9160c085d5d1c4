#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "system/window_system.h"
#include "toolkit/bitmap.h"
#include "toolkit/dialogs.h"
#include "toolkit/units.h"

namespace quorvale {

class PictureLoader;
class Surface;
class WidgetFactory;

// The interfaces that a platform implements for the toolkit. A platform calls back only through the event interfaces
// below, and only on the program's main thread. The toolkit catches what handlers throw: no exception other than
// `ProcessEnded` leaves an event.

// Events of a form's window.
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
  // A saver window lost the focus to another program's window, was minimised or became invisible. Boxes of this
  // program and a screen locker's keyboard grab don't count. While a box is open the event waits, and is sent when the
  // box closes if it still applies.
  virtual void OnDeactivated() = 0;
  // For saver windows: the primary monitor or its size changed; `Platform::Screen` has the new size. The platform
  // itself takes care of black windows on other monitors. A shared saver is also told when other monitors come, go or
  // change. Not sent while there is no monitor.
  virtual void OnScreenChanged() = 0;
};

// Events of a picture box's window. Positions are in toolkit pixels.
class SurfaceEvents {
 public:
  virtual ~SurfaceEvents() = default;
  virtual void OnKeyDown(int key) = 0;
  virtual void OnMouseDown(int x, int y) = 0;
  virtual void OnMouseMove(int x, int y) = 0;
  // The number of device pixels per toolkit pixel changed.
  virtual void OnScaleChanged() = 0;
};

// A top-level window. The destructor removes it from the screen; the toolkit never calls it while the window delivers
// an event.
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
  // Restarts the timer with that period; 0 stops it.
  virtual void Set(int milliseconds) = 0;
};

// Reports chosen messages of one window.
class MessageHookPeer {
 public:
  virtual ~MessageHookPeer() = default;
  virtual void Watch(WindowHandle window) = 0;
  virtual void Report(int message) = 0;
};

// The platform uses the nearest font that it has.
struct Font {
  std::string name;
  float points = 8;
};

// Draws text on pixels. The platform knows the device's resolution.
class TextPainter {
 public:
  virtual ~TextPainter() = default;

  // The size of one line of text, in device pixels, on a surface with `scale` device pixels to the
  // toolkit's pixel.
  virtual PixelRect Measure(const std::string& text, const Font& font, float scale) = 0;

  // Draws one line with its top left corner at that pixel of `target`, cut off at its edges. Gives the
  // pixels that may have changed.
  virtual PixelRect Draw(const PixelView& target, int left, int top, const std::string& text, const Font& font,
                         Colour colour, float scale) = 0;
};

// Paces one transition: each of its passes takes at least the nominal length.
class PacedRun {
 public:
  virtual ~PacedRun() = default;
  virtual void PumpEvents() = 0;
};

enum class WindowKind {
  kSaver,        // no border; while it is visible, other monitors are black and input there goes to it
  kSharedSaver,  // the same, but windows of the next kind cover other monitors
  kMonitor,      // covers one of `Platform::FurtherMonitors`, above all others, and does not take the focus
  kHidden,       // never shown
  kDialog,       // a fixed dialog frame without minimise and maximise boxes
};

inline bool IsSaver(WindowKind kind) { return kind == WindowKind::kSaver || kind == WindowKind::kSharedSaver; }

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
  // The places of the monitors beside the primary one that a show may cover, in the toolkit's pixels, from the corner
  // of the primary monitor. Of monitors that mirror each other only one.
  virtual std::vector<PixelRect> FurtherMonitors() = 0;

  // Windows start hidden. `events` must outlive the peer.
  virtual std::unique_ptr<WindowPeer> CreateWindowPeer(WindowKind kind, WindowEvents& events) = 0;
  // `surface` must outlive the peer.
  virtual std::unique_ptr<SurfacePeer> CreateSurfacePeer(WindowPeer& window, Surface& surface,
                                                         SurfaceEvents& events) = 0;
  virtual std::unique_ptr<TimerPeer> CreateTimerPeer(std::function<void()> fired) = 0;

  // `arrived` is called with the number of a reported message.
  virtual std::unique_ptr<MessageHookPeer> CreateMessageHookPeer(std::function<void(int message)> arrived) = 0;

  virtual PictureLoader& Pictures() = 0;
  virtual TextPainter& Text() = 0;

  // Delivers all pending events, then returns without waiting.
  virtual void PumpEvents() = 0;
  // `surface` may be destroyed during the run.
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
