#pragma once

#include <memory>
#include <string>
#include <vector>

#include "measure.h"
#include "platform/desktop/desktop_platform.h"
#include "platform/desktop/system/desktop_host.h"
#include "platform/desktop/system/desktop_programs.h"
#include "platform/desktop/system/files.h"
#include "platform/desktop/system/posix_file_system.h"
#include "platform/desktop/system/sdl_sound_player.h"
#include "platform/desktop/system/sqlite_registry.h"
#include "process/process.h"
#include "settings/reg_settings.h"
#include "show/show_form.h"
#include "system/window_system.h"
#include "toolkit/bitmap.h"
#include "yardstick/x_display.h"

namespace quorvale {

// The background of every show of the bench, and the colour of the bare screen. They show how far a program has come.
// No test picture has them in its middle.
inline constexpr Colour kShowBackground = 0x402010;
inline constexpr Pixel kBareScreen = 0xFF010203;

// Whether the show's window covers the screen and has no picture yet.
bool ShowsBackground(const XDisplay& display);

// Gives the bare screen its colour, and waits until no window covers it.
void ClearScreen(XDisplay& display);

// Waits until a program has put a picture on the screen.
void WaitForPicture(const XDisplay& display);

struct ShowSettings {
  std::vector<std::string> pictures;
  std::string effect = "None";
  bool stretch = true;
  int interval = 60;  // seconds
  int speed = 20;
};

// The store from which this process's shows and those of the programs that it starts take their options.
class ShowStore {
 public:
  // The next show starts with the first picture.
  void Set(const ShowSettings& show);
  void SetOption(const std::string& key, const std::string& value);
  // The number of pictures shown. Valid in the first round through the list.
  int PicturesShown();

 private:
  SqliteRegistry registry_{SettingsDirectory()};
  CRegSettings settings_{registry_};
};

// The core on the real desktop, put together as the program does it.
class DesktopProcess {
 public:
  // Needs a QApplication.
  explicit DesktopProcess(const PassLengths& pass_lengths = {})
      : platform_({.application_title = "Bench", .pass_lengths = pass_lengths}) {
    core.mode = RunMode::kShow;
  }

 private:
  DesktopPlatform platform_;
  SqliteRegistry registry_{SettingsDirectory()};
  DesktopHost host_{[] {}};
  PosixFileSystem files_{SettingsDirectory(), ""};
  SdlSoundPlayer sound_;
  DesktopPrograms programs_;

 public:
  DesktopPassword password;
  Process core{platform_, {registry_, files_, platform_.Windows(), sound_, programs_, host_, password}};
};

// The show on the real screen, with ticks on demand. Reads its options from the store.
class LiveShow {
 public:
  // `display` outlives it. If there is a `host`, a window in the middle of the screen, it is the preview in that
  // window.
  explicit LiveShow(XDisplay& display, const PassLengths& pass_lengths = {}, WindowHandle host = 0);

  Process& Core() { return desktop_.core; }
  ShowForm& Form() { return *form_; }

  // Lets the timer fire. Returns the milliseconds from its event until the picture is shown. Fails if it is not
  // there.
  double Tick();

  // Presents what is drawn; returns when the X server has it.
  void Present();

 private:
  void ShowForms(WindowHandle host);
  void RequirePicture();

  XDisplay& display_;
  DesktopProcess desktop_;
  std::shared_ptr<ShowForm> form_;
  Stopwatch since_event_;
  bool ticked_ = false;
};

}  // namespace quorvale
