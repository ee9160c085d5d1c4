#include "run/configuration.h"

#include <exception>
#include <functional>
#include <memory>

#include "base/failure.h"
#include "config/config_form.h"
#include "process/process.h"
#include "system/window_system.h"

namespace quorvale {
namespace {

void IgnoringFailures(const std::function<void()>& body) {
  try {
    body();
  } catch (const std::exception&) {
  }
}

// The title of the dialog that opens the configuration differs between systems.
void BringCallerForward(Process& process) {
  WindowSystem& windows = process.system.windows;
  try {
    windows.ActivateWindow("Display Properties");
  } catch (const Failure&) {
    windows.ActivateWindow(process.ConfigDialogHwnd);
  }
}

}  // namespace

std::vector<ReportedStep> ConfigurationSteps(Process& process) {
  WindowSystem& windows = process.system.windows;
  return {[&process, &windows] { process.ConfigDialogHwnd = windows.GetForegroundWindow(); },
          [&process, &windows] { windows.EnableWindow(process.ConfigDialogHwnd, false); }};
}

void Configure(Process& process) {
  WindowSystem& windows = process.system.windows;
  IgnoringFailures([&process] { std::make_shared<ConfigForm>(process)->ShowModal(); });
  windows.EnableWindow(process.ConfigDialogHwnd, true);
  process.app.PumpEvents();
  IgnoringFailures([&process] { BringCallerForward(process); });
}

}  // namespace quorvale
