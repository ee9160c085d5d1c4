#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/headless/dialog_script.h"
#include "platform/headless/event_queue.h"
#include "platform/headless/headless_graphics.h"
#include "platform/headless/headless_widgets.h"
#include "platform/headless/memory_file_system.h"
#include "platform/headless/memory_registry.h"
#include "platform/headless/services.h"
#include "platform/headless/window_table.h"
#include "system/system.h"
#include "toolkit/platform.h"

namespace quorvale {

// One paced run and its number of passes.
struct PacedRunLog {
  WindowHandle surface = 0;
  int pumps = 0;
  bool open = true;
};

// The parts of a surface that were presented together, in device pixels.
struct Presentation {
  WindowHandle surface = 0;
  std::vector<PixelRect> rects;
};

// A desktop in memory with a virtual clock. It must outlive the `Application` that runs on it. Desktops are independent
// of each other.
class HeadlessDesktop : public Platform {
 public:
  HeadlessDesktop();

  // The services of the operating system, for a `Process`.
  System Services();

  ScreenInfo Screen() override { return screen_; }
  std::vector<PixelRect> FurtherMonitors() override { return further_monitors_; }
  std::unique_ptr<WindowPeer> CreateWindowPeer(WindowKind kind, WindowEvents& events) override;
  std::unique_ptr<SurfacePeer> CreateSurfacePeer(WindowPeer& window, Surface& surface, SurfaceEvents& events) override;
  std::unique_ptr<TimerPeer> CreateTimerPeer(std::function<void()> fired) override;
  PictureLoader& Pictures() override { return pictures; }
  std::unique_ptr<MessageHookPeer> CreateMessageHookPeer(std::function<void(int message)> arrived) override;
  TextPainter& Text() override { return text_; }
  void PumpEvents() override { queue.Pump(); }
  std::unique_ptr<PacedRun> OpenPacedRun(SurfacePeer& surface) override;
  WidgetFactory& Widgets() override { return widgets; }
  void RunModal(WindowPeer& window) override;
  MessageBoxAnswer ShowMessageBox(const MessageBox& box) override { return boxes.Show(box); }
  std::string ShowFileDialog(WindowPeer& /*owner*/, const FileDialog& dialog) override { return dialogs.File(dialog); }
  Colour ShowColourDialog(WindowPeer& /*owner*/, Colour start) override { return dialogs.ChooseColour(start); }
  std::string BrowseForFolder(WindowPeer& /*owner*/, const std::string& title) override {
    return dialogs.Folder(title);
  }

  // For tests: state, scripted users and records.

  CallLog calls;
  EventQueue queue;
  MemoryRegistry registry;
  MemoryFileSystem files;
  WindowTable windows{calls};
  RecordedSound sound{calls};
  RecordedPrograms programs{calls};
  ScriptedHost host{queue, calls};
  ScriptedPassword password{calls};
  MessageBoxScript boxes;
  DialogScript dialogs;
  HeadlessWidgets widgets;
  TextPictureLoader pictures{files};
  // All paced runs so far.
  std::vector<PacedRunLog> paced_runs;
  std::vector<Presentation> presentations;

  // 800 by 600 pixels at scale 1 at first. All picture boxes and saver windows are notified.
  void SetScreen(int width, int height, float scale = 1);
  // The further monitors; none at first. Saver windows are notified, as for `SetScreen`.
  void SetFurtherMonitors(std::vector<PixelRect> monitors);

  // Delivers input to the window of a form or picture box at once. Positions are in toolkit pixels. A disabled window
  // gets no input; the result is false then. Fails with kInvalidArgument if there is no such window.
  bool PressKey(WindowHandle window, int key);
  bool MoveMouse(WindowHandle window, int x = 0, int y = 0);
  bool PressMouse(WindowHandle window, int x = 0, int y = 0);
  bool RequestClose(WindowHandle window);
  bool RequestHelp(WindowHandle window);
  // Brings another program's window to the front of this one.
  bool Deactivate(WindowHandle window);

  // Delivers a message to a window, and thereby to its hooks.
  void SendMessage(WindowHandle window, int message);

 private:
  class FormWindow;
  class BoxWindow;
  class LoggedRun;
  class Hook;

  template <typename ToBox, typename ToForm>
  bool Deliver(WindowHandle window, ToBox to_box, ToForm to_form);
  void Present(WindowHandle window);
  void PresentAll();

  void NotifyOfScreen();

  ScreenInfo screen_{.width = 800, .height = 600, .scale = 1};
  std::vector<PixelRect> further_monitors_;
  BlockTextPainter text_;
  std::vector<Hook*> hooks_;
};

}  // namespace quorvale
