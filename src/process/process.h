#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "base/random.h"
#include "process/collection.h"
#include "settings/reg_settings.h"
#include "system/system.h"
#include "system/window_system.h"
#include "toolkit/application.h"

namespace quorvale {

// Everything that lives as long as the process. One is made for each run of the program, and whoever
// needs it holds it by reference.
struct Process {
  Process(Platform& platform, System system_services);

  // An option of the show, read from the store at each call.
  std::string Option(const std::string& key, const std::string& fallback);
  // True when it is stored.
  bool SetOption(const std::string& key, const std::string& value);

  // Whether the run's mode is that switch.
  bool IsMode(std::string_view mode) const { return RunMode.starts_with(mode); }

  Application app;
  System system;
  CRegSettings Settings;
  Random random;

  // The upper-cased first two characters of the command line, "/C" when they are empty.
  std::string RunMode;
  // The window given with "/P" or "/A"; 0 in the other modes.
  std::int32_t SystemHwnd = 0;
  // The window disabled while configuration runs; 0 in the other modes.
  WindowHandle ConfigDialogHwnd = 0;
  // Twips to the pixel of the screen.
  std::int16_t ScreenTwipsX = 0;
  std::int16_t ScreenTwipsY = 0;
  std::string SystemDirectory;

  // The host's client area, in pixels, and whether the preview's surface sits in the host.
  ClientRect PreviewRect;
  bool PreviewAlive = false;

  Collection PictureList;
  Collection SoundList;

  // Positions of the lists that the store did not take, under their options.
  std::map<std::string, std::string> UnstoredPositions;

  // The show is to end.
  bool StopRequested = false;
  // A click on a list button of the configuration window makes the next tick do nothing.
  bool PreviewSuspended = false;
  // A picture has been on view, so that the next one gets a transition. Never cleared.
  bool TransitionArmed = false;
  // A tick has been completed, so that the reset options are spent. Never cleared.
  bool FirstTickOver = false;
  // 1 to 20 when it comes from the dialog.
  std::int32_t TransitionSpeed = 0;
  // Non-zero when the user has set a saver password; and the system's family. Both are read once a show.
  std::int16_t UsePassword = 0;
  std::int32_t PlatformId = 0;
  // Mouse moves in the present count window of the full-screen show.
  std::int32_t MouseMoveCount = 0;
};

}  // namespace quorvale
