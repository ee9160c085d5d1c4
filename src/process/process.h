#pragma once

#include <cstdint>
#include <string>

#include "base/random.h"
#include "process/run_mode.h"
#include "process/show_state.h"
#include "settings/options.h"
#include "settings/reg_settings.h"
#include "system/system.h"
#include "system/window_system.h"
#include "toolkit/application.h"

namespace quorvale {

struct Process;

// Runs the pending events in the midst of a tick. If one of them ends the show, so does the process.
void LetEventsArrive(Process& process);

// Everything that lives as long as the process. Each run of the program makes one. Code that needs all of it holds a
// reference; code that needs one part takes that part.
struct Process {
  Process(Platform& platform, System system_services)
      : app(platform), system(system_services), settings(system.registry), options(settings) {
    app.while_waiting = [this] { LetEventsArrive(*this); };
  }
  // Not copied: its parts refer to one another.
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  Application app;
  System system;
  CRegSettings settings;
  Options options;
  Random random;
  ShowState show;

  RunMode mode = RunMode::kNone;
  // This show runs on a further monitor, beside another process's on the primary one, which plays the sounds. Screen
  // saver daemons start one process a monitor.
  bool beside_primary = false;
  // The window handle that follows "/P" or "/A"; 0 in other modes.
  std::int32_t system_hwnd = 0;
  // The dialog that is disabled while the configuration runs; 0 in other modes.
  WindowHandle config_dialog_hwnd = 0;
  // The screen's twips to the pixel.
  std::int16_t screen_twips_x = 0;
  std::int16_t screen_twips_y = 0;
  std::string system_directory;
};

// Ends the process at once; no form unloads. Before that it shows the cursor and enables the dialog that the
// configuration had disabled.
[[noreturn]] void EndSaver(Process& process);

// Calls `ShowCursor` until its count is greater than 5, or less than -5: past whatever count the system
// began with.
void ForceCursorOn(WindowSystem& windows);
void ForceCursorOff(WindowSystem& windows);

}  // namespace quorvale
