#include "process/process.h"

#include <cstdlib>

#include "system/host_system.h"
#include "system/window_system.h"

namespace quorvale {
namespace {

constexpr int kCursorCountLimit = 5;

}  // namespace

void LetEventsArrive(Process& process) {
  process.app.PumpEvents();
  if (process.show.stop_requested) EndSaver(process);
}

void EndSaver(Process& process) {
  ForceCursorOn(process.system.windows);
  process.app.PumpEvents();
  process.system.windows.EnableWindow(process.config_dialog_hwnd, true);
  process.system.host.EndProcess();
  std::abort();  // never reached: GCC 12 forgets that a virtual function does not return
}

void ForceCursorOn(WindowSystem& windows) {
  while (windows.ShowCursor(true) <= kCursorCountLimit) {
  }
}

void ForceCursorOff(WindowSystem& windows) {
  while (windows.ShowCursor(false) >= -kCursorCountLimit) {
  }
}

}  // namespace quorvale
