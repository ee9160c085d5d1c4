// The Windows program: makes the objects of the platform and runs the core on them.

#include <cstdlib>
#include <exception>
#include <string>

#include "base/application_info.h"
#include "base/failure.h"
#include "platform/win32/pictures/picture_loader.h"
#include "platform/win32/system/com.h"
#include "platform/win32/system/library_services.h"
#include "platform/win32/system/modules.h"
#include "platform/win32/system/win32_file_system.h"
#include "platform/win32/system/win32_host.h"
#include "platform/win32/system/win32_programs.h"
#include "platform/win32/system/win32_registry.h"
#include "platform/win32/toolkit/event_loop.h"
#include "platform/win32/toolkit/resolution.h"
#include "platform/win32/win32_platform.h"
#include "process/process.h"
#include "process/run_mode.h"
#include "run/main_procedure.h"

namespace quorvale {
namespace {

// A preview needs the DPI awareness of its host.
void AdoptHost(const std::string& text) {
  try {
    AdoptDpiAwarenessOf(reinterpret_cast<HWND>(ToWindowHandle(SwitchHandle(text))));
  } catch (const Failure&) {
    // `Main` reads the number again and reports the failure.
  }
}

int RunProgram(const std::string& text) {
  // Libraries that are loaded later come from the system's directory, not from the program's.
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
  // A list may name an empty drive. The system must not ask for a disk above the show.
  SetErrorMode(SEM_FAILCRITICALERRORS);
  const ComApartment components;
  // A show covers physical pixels. The configuration scales with the resolution.
  const RunMode mode = RunModeOf(text);
  if (mode == RunMode::kPreview) AdoptHost(text);
  Win32Options options;
  options.application_title = kApplicationTitle;
  options.pixels = ShowsPictures(mode) ? PixelKind::kPhysical : PixelKind::kLogical;
  Win32PictureLoader pictures;
  Win32Platform platform(options, pictures);
  Win32Registry registry;
  Win32FileSystem files;
  Win32SoundPlayer sound;
  Win32Programs programs;
  Win32Host host;
  Win32Password password;
  Process process(platform, {registry, files, platform.Windows(), sound, programs, host, password});

  Main(process, text);
  // Set only now: a form that fails to load also goes, and an ended loop would close the box that reports the failure.
  if (process.app.forms.Count() == 0) return 0;
  process.app.last_form_gone = EndEventLoop;
  return RunEventLoop();
}

}  // namespace
}  // namespace quorvale

// The signature is the system's.
// NOLINTNEXTLINE(readability-non-const-parameter)
int WINAPI WinMain(HINSTANCE /*hInstance*/, HINSTANCE /*hPrevInstance*/, LPSTR /*lpCmdLine*/, int /*nShowCmd*/) {
  // A box of the program's own reports what fails once it runs. Memory can run out before.
  try {
    return quorvale::RunProgram(quorvale::CommandText());
  } catch (const std::exception& error) {
    MessageBoxA(nullptr, error.what(), quorvale::kApplicationTitle, MB_ICONEXCLAMATION);
    return EXIT_FAILURE;
  }
}
