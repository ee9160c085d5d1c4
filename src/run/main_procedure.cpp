#include "run/main_procedure.h"

#include <cmath>
#include <exception>
#include <functional>
#include <limits>
#include <memory>
#include <vector>

#include "base/failure.h"
#include "base/numbers.h"
#include "base/text.h"
#include "config/config_form.h"
#include "process/process.h"
#include "run/reported_steps.h"
#include "run/set_up.h"
#include "saver/control_form.h"
#include "saver/main_form.h"
#include "saver/saver_password.h"
#include "system/host_system.h"
#include "system/window_system.h"

namespace quorvale {
namespace {

constexpr std::uint32_t kSystemDirectoryBuffer = 144;

std::vector<ReportedStep> StartUpSteps(Process& process, const std::string& text) {
  return {
      [&process] { process.screen_twips_x = RoundToInt16(process.app.Screen().twips_per_pixel_x); },
      [&process] { process.screen_twips_y = RoundToInt16(process.app.Screen().twips_per_pixel_y); },
      [&process] {
        std::string directory = process.system.host.GetSystemDirectory(kSystemDirectoryBuffer);
        process.system_directory = CutToken(directory, '\0');
      },
      [&process, text] { process.mode = RunModeOf(text); },
  };
}

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
    windows.ActivateWindow(process.config_dialog_hwnd);
  }
}

// Disables the window in the foreground, which is the system's dialog that started the configuration.
std::vector<ReportedStep> ConfigurationSteps(Process& process) {
  WindowSystem& windows = process.system.windows;
  return {[&process, &windows] { process.config_dialog_hwnd = windows.GetForegroundWindow(); },
          [&process, &windows] { windows.EnableWindow(process.config_dialog_hwnd, false); }};
}

// Shows the configuration window until it is closed, then enables that dialog again. Failures are ignored.
void Configure(Process& process) {
  WindowSystem& windows = process.system.windows;
  IgnoringFailures([&process] { std::make_shared<ConfigForm>(process)->ShowModal(); });
  windows.EnableWindow(process.config_dialog_hwnd, true);
  process.app.PumpEvents();
  IgnoringFailures([&process] { BringCallerForward(process); });
}

void ShowMainForm(Process& process) {
  if (process.system.windows.FindWindow(kMainFormCaption) == 0) std::make_shared<MainForm>(process)->Show();
}

std::vector<ReportedStep> ModeSteps(Process& process, const std::string& text) {
  switch (process.mode) {
    case RunMode::kConfiguration:
      return ConfigurationSteps(process);
    case RunMode::kShow:
      return {[&process] { ShowMainForm(process); }};
    case RunMode::kPreview:
      return {[&process, text] { process.system_hwnd = SwitchHandle(text); },
              [&process] { std::make_shared<ControlForm>(process)->Load(); }};
    case RunMode::kPassword:
      return {[&process, text] { process.system_hwnd = SwitchHandle(text); }, [&process] { ChangePassword(process); }};
    case RunMode::kNone:
      break;
  }
  if (text.find(kSetUpSwitch) != std::string::npos) return SetUpSteps(process, text);
  return {};
}

}  // namespace

void Main(Process& process, const std::string& text) {
  if (!RunReportedSteps(process.app, StartUpSteps(process, text))) return;
  if (!RunReportedSteps(process.app, ModeSteps(process, text))) return;
  // Failures from here on are not reported.
  if (process.mode == RunMode::kConfiguration) Configure(process);
}

bool ShowsPictures(RunMode mode) { return mode == RunMode::kShow || mode == RunMode::kPreview; }

std::int32_t SwitchHandle(const std::string& text) {
  constexpr double kOnePastTheLargest = 4294967296.0;
  const double number = std::nearbyint(LenientParse(Mid(text, 3)));
  const bool has_highest_bit = number > std::numeric_limits<std::int32_t>::max() && number < kOnePastTheLargest;
  return RoundToInt32(has_highest_bit ? number - kOnePastTheLargest : number);
}

}  // namespace quorvale
