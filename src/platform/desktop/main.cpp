// The Linux program: makes what the core runs on, and runs it.

#include <QApplication>
#include <QLoggingCategory>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/application_info.h"
#include "platform/desktop/desktop_platform.h"
#include "platform/desktop/system/desktop_host.h"
#include "platform/desktop/system/files.h"
#include "platform/desktop/system/invocation.h"
#include "platform/desktop/system/posix_file_system.h"
#include "platform/desktop/system/sdl_sound_player.h"
#include "platform/desktop/system/sqlite_registry.h"
#include "platform/desktop/system/xscreensaver_file.h"
#include "platform/desktop/toolkit/event_loop.h"
#include "platform/desktop/toolkit/start_up.h"
#include "platform/desktop/toolkit/x11_session.h"
#include "process/process.h"
#include "process/run_mode.h"
#include "run/main_procedure.h"
#include "run/set_up.h"
#include "settings/options.h"
#include "settings/reg_settings.h"

namespace quorvale {
namespace {

constexpr std::uint32_t kLongestPath = 4096;
constexpr int kUsageError = 2;

constexpr char kUsage[] = R"(Usage: quorvale [SWITCH]

Slide-show screen saver. Without a switch it opens its configuration window.

  /C                    the configuration window
  /S                    the show on the whole screen, until a key or the mouse ends it
  /P WINDOW             the show in another program's window, an X window id in decimal
  /INSTALL DIRECTORY/   list the samples of that directory, and set XScreenSaver up
  --root                the show in the window that XSCREENSAVER_WINDOW names
  --window-id WINDOW    the show in that window, in decimal or with 0x in front
  --version             print the version
  --help                print this text

The command quorvale-settings reads and changes the settings from a terminal.
)";

bool EachMonitorHasPictures() {
  SqliteRegistry registry(SettingsDirectory());
  CRegSettings settings(registry);
  return Options(settings).MonitorsChoice() == Monitors::kPictureOnEach;
}

bool NeedsDisplay(RunMode mode) { return ShowsPictures(mode) || mode == RunMode::kConfiguration; }

int RunProgram(const std::string& text, const DesktopOptions& options) {
  DesktopPlatform platform(options);
  SqliteRegistry registry(SettingsDirectory());
  const bool is_in_daemon_window = options.daemon_window.handle != 0;
  DesktopHost host([&registry] { registry.Close(); }, is_in_daemon_window ? SettingsDirectory() : std::string());
  const std::string directory = host.GetSystemDirectory(kLongestPath);
  PosixFileSystem files(SettingsDirectory(), directory + '/' + host.ProgramName() + ".SCR", [&] {
    // Without samples there is nothing to show, so that XScreenSaver keeps the saver that it has.
    if (!SetUpDirectory(text).empty()) BecomeSaverOfUser(directory, host.ProgramName());
  });
  SdlSoundPlayer sound;
  QtPrograms programs;
  DesktopPassword password;
  Process process(platform, {registry, files, platform.Windows(), sound, programs, host, password});
  process.beside_primary = options.daemon_window.is_beside_primary;
  const EndingSignals signals([&process] {
    // `EndSaver` runs a pass, which must not start another slide.
    process.show.stop_requested = true;
    EndSaver(process);
  });

  process.app.last_form_gone = [] { QCoreApplication::quit(); };
  Main(process, text);
  const int result = process.app.forms.Count() > 0 ? QCoreApplication::exec() : EXIT_SUCCESS;
  // The libraries' own clean-up must not run beside a thread that still uses them.
  if (platform.Pictures().IsBusy()) host.EndProcess();
  return result;
}

int Start(int argc, char** argv) {
  if (argc == 2 && argv[1] == std::string_view("--help")) {
    std::fputs(kUsage, stdout);
    return EXIT_SUCCESS;
  }
  if (argc == 2 && argv[1] == std::string_view("--version")) {
    std::printf("quorvale %d.%d.%d\n", kVersionMajor, kVersionMinor, kVersionRevision);
    return EXIT_SUCCESS;
  }
  const Invocation invocation = ReadInvocation({argv + 1, argv + argc}, std::getenv("XSCREENSAVER_WINDOW"));
  const std::string& text = invocation.text;
  if (invocation.is_unknown) {
    std::fprintf(stderr, "quorvale: %s: no such switch; quorvale --help lists them\n", text.c_str());
    return kUsageError;
  }
  if (invocation.daemon_window == 0U) {
    std::fputs("quorvale: XSCREENSAVER_WINDOW names no window to show anything in\n", stderr);
    return EXIT_FAILURE;
  }
  const RunMode mode = RunModeOf(text);
  DesktopOptions options;
  options.application_title = kApplicationTitle;
  options.daemon_window.handle = invocation.daemon_window.value_or(0);
  options.pixels = ShowsPictures(mode) ? PixelKind::kPhysical : PixelKind::kLogical;
  if (options.pixels == PixelKind::kPhysical) options.text_scale = TurnScalingOff();
  // A preview's host may be gone at any moment. Qt would then print a warning for each drawing call.
  QLoggingCategory::setFilterRules("qt.qpa.xcb.warning=false");
  if (invocation.daemon_window || mode == RunMode::kPreview) PreferX11();
  std::optional<DisplayProbe> probe(std::in_place);
  options.has_display = probe->HasDisplay();
  if (!options.has_display && !NeedsDisplay(mode)) qputenv("QT_QPA_PLATFORM", "offscreen");
  if (!options.has_display && NeedsDisplay(mode)) EndWithoutDisplay("quorvale");
  EndWithoutPlatform("quorvale");

  // Every mouse move counts, also when several come between two passes.
  QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  // A session must not start a saver again.
  qunsetenv("SESSION_MANAGER");
  // Qt gets no arguments: all of them are the program's own.
  int qt_argc = 1;
  const QApplication application(qt_argc, argv);
  probe.reset();
  const WindowHandle daemon_window = options.daemon_window.handle;
  if (daemon_window == 0) return RunProgram(text, options);
  switch (PlaceOfDaemonWindow(daemon_window)) {
    case DaemonPlace::kNone:
      return KeepBlack(daemon_window);
    case DaemonPlace::kOtherMonitor:
      if (!EachMonitorHasPictures()) return KeepBlack(daemon_window);
      options.daemon_window.is_beside_primary = true;
      break;
    case DaemonPlace::kPreview:
      options.daemon_window = {};
      return RunProgram("/P " + std::to_string(daemon_window), options);
    case DaemonPlace::kPrimary:
      break;
  }
  return RunProgram(text, options);
}

}  // namespace
}  // namespace quorvale

// A box reports what fails once the program runs. Memory can run out before.
int main(int argc, char** argv) {
  try {
    return quorvale::Start(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "quorvale: %s\n", error.what());
    return EXIT_FAILURE;
  }
}
