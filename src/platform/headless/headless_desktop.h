#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/headless/block_text.h"
#include "platform/headless/dialog_script.h"
#include "platform/headless/event_queue.h"
#include "platform/headless/headless_widgets.h"
#include "platform/headless/memory_file_system.h"
#include "platform/headless/memory_registry.h"
#include "platform/headless/message_box_script.h"
#include "platform/headless/services.h"
#include "platform/headless/text_pictures.h"
#include "platform/headless/window_table.h"
#include "system/system.h"
#include "toolkit/platform.h"

namespace quorvale {

// The passes that an effect made through one paced run.
struct PacedRunLog {
  WindowHandle surface = 0;
  int pumps = 0;
  bool open = true;
};

// What went from a surface to the screen in one go, in device pixels.
struct Presentation {
  WindowHandle surface = 0;
  std::vector<PixelRect> rects;
};

// A whole desktop in memory, on a clock that stands still until it is advanced. It must outlive the
// `Application` that runs on it; several can live side by side.
class HeadlessDesktop : public Platform {
 public:
  HeadlessDesktop();

  // The operating system's side, for the process.
  System Services();

  ScreenInfo Screen() override { return screen_; }
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

  // What follows is the user, the machine and the observer.

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
  // One for each effect so far.
  std::vector<PacedRunLog> paced_runs;
  std::vector<Presentation> presentations;

  // 800 by 600 pixels at scale 1 at first. A change is told to every picture box and saver window.
  void SetScreen(int width, int height, float scale = 1);

  // Input at a form's or a picture box's window, delivered at once; positions in the toolkit's pixels.
  // A disabled window gets none, and false says so. Fails with kInvalidArgument where there is no such
  // window.
  bool PressKey(WindowHandle window, int key);
  bool MoveMouse(WindowHandle window, int x = 0, int y = 0);
  bool PressMouse(WindowHandle window, int x = 0, int y = 0);
  bool RequestClose(WindowHandle window);
  bool RequestHelp(WindowHandle window);
  // A window of another program comes to the front of that one.
  bool Deactivate(WindowHandle window);

  // A message arrives at a window, and whoever hooks it hears of it.
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

  ScreenInfo screen_{.width = 800, .height = 600, .scale = 1};
  BlockTextPainter text_;
  std::vector<Hook*> hooks_;
};

}  // namespace quorvale
