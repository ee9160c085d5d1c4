// The Linux program: makes what the core runs on, and runs it.

#include <QApplication>
#include <QLoggingCategory>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "platform/desktop/desktop_platform.h"
#include "platform/desktop/system/desktop_host.h"
#include "platform/desktop/system/desktop_password.h"
#include "platform/desktop/system/invocation.h"
#include "platform/desktop/system/posix_file_system.h"
#include "platform/desktop/system/sdl_sound_player.h"
#include "platform/desktop/system/settings_location.h"
#include "platform/desktop/system/sqlite_registry.h"
#include "platform/desktop/system/xscreensaver_file.h"
#include "platform/desktop/toolkit/event_loop.h"
#include "platform/desktop/toolkit/start_up.h"
#include "platform/desktop/toolkit/x11_session.h"
#include "process/end_saver.h"
#include "process/process.h"
#include "run/main_procedure.h"
#include "run/set_up.h"
#include "settings/version_record.h"

namespace quorvale {
namespace {

constexpr std::uint32_t kLongestPath = 4096;

constexpr char kUsage[] = R"(Usage: quorvale [SWITCH]

Slide-show screen saver. Without a switch it opens its configuration window.

  /C                    the configuration window
  /S                    the show on the whole screen, until a key or the mouse ends it
  /P WINDOW             the show in another program's window, an X window id in decimal
  /INSTALL DIRECTORY/   list the samples of that directory, and set XScreenSaver up
  --root                the show in the window that XSCREENSAVER_WINDOW names
  --window-id WINDOW    the show in that window, in decimal or with 0x in front
  --help                print this text

The command quorvale-settings reads and changes the settings from a terminal.
)";

bool IsPreview(std::string_view text) { return UpperCase(Left(text, 2)) == "/P"; }

// The windows of a show cover the pixels that are there; those of the configuration are sized for the reader.
bool IsShow(std::string_view text) { return UpperCase(Left(text, 2)) == "/S" || IsPreview(text); }

// Everything that the user is to see; the configuration is what runs without a switch.
bool NeedsDisplay(std::string_view text) { return IsShow(text) || text.empty() || UpperCase(Left(text, 2)) == "/C"; }

int RunProgram(const std::string& text, const DesktopOptions& options) {
  DesktopPlatform platform(options);
  SqliteRegistry registry(SettingsDirectory());
  DesktopHost host([&registry] { registry.Close(); });
  const std::string directory = host.GetSystemDirectory(kLongestPath);
  PosixFileSystem files(SettingsDirectory(), directory + '/' + host.ProgramName() + ".SCR", [&] {
    // Without samples there is nothing to show, and XScreenSaver may have a better saver.
    if (!SetUpDirectory(text).empty()) BecomeSaverOfUser(directory, host.ProgramName());
  });
  SdlSoundPlayer sound;
  QtPrograms programs;
  DesktopPassword password;
  Process process(platform, {registry, files, platform.Windows(), sound, programs, host, password});
  const EndingSignals signals([&process] {
    // The pass that `EndSaver` makes must not run another slide first.
    process.show.StopRequested = true;
    EndSaver(process);
  });

  process.app.LastFormGone = [] { QCoreApplication::quit(); };
  Main(process, text);
  return process.app.Forms.Count() > 0 ? QCoreApplication::exec() : EXIT_SUCCESS;
}

}  // namespace
}  // namespace quorvale

int main(int argc, char** argv) {
  using namespace quorvale;
  if (argc == 2 && argv[1] == std::string_view("--help")) {
    std::fputs(kUsage, stdout);
    return EXIT_SUCCESS;
  }
  const Invocation invocation = ReadInvocation({argv + 1, argv + argc}, std::getenv("XSCREENSAVER_WINDOW"));
  const std::string& text = invocation.text;
  if (invocation.daemon_window == 0U) {
    std::fputs("quorvale: XSCREENSAVER_WINDOW names no window to show anything in\n", stderr);
    return EXIT_FAILURE;
  }
  DesktopOptions options;
  options.application_title = kApplicationTitle;
  options.daemon_window = invocation.daemon_window.value_or(0);
  options.pixels = IsShow(text) ? PixelKind::kPhysical : PixelKind::kLogical;
  if (options.pixels == PixelKind::kPhysical) options.text_scale = TurnScalingOff();
  // A preview's host may go at any moment, and what is drawn then is lost without anybody's fault.
  QLoggingCategory::setFilterRules("qt.qpa.xcb.warning=false");
  if (invocation.daemon_window || IsPreview(text)) PreferX11();
  std::optional<DisplayProbe> probe(std::in_place);
  if (!probe->HasDisplay() && !NeedsDisplay(text)) qputenv("QT_QPA_PLATFORM", "offscreen");
  if (!probe->HasDisplay() && NeedsDisplay(text)) {
    std::fputs("quorvale: there is no display to show anything on\n", stderr);
    return EXIT_FAILURE;
  }

  // Each move of the mouse counts, also those that come faster than they are handled.
  QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  // A saver is nothing that a session should start again.
  qunsetenv("SESSION_MANAGER");
  // The arguments are the program's own; none of them is Qt's.
  int qt_argc = 1;
  const QApplication application(qt_argc, argv);
  probe.reset();
  if (options.daemon_window != 0 && !HoldsPrimaryMonitor(options.daemon_window)) {
    return KeepBlack(options.daemon_window);
  }
  return RunProgram(text, options);
}
