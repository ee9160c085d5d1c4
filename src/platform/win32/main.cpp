// The Windows program: makes what the core runs on, and runs it.

#include <string>

#include "base/failure.h"
#include "base/text.h"
#include "platform/win32/pictures/picture_loader.h"
#include "platform/win32/system/com.h"
#include "platform/win32/system/library_services.h"
#include "platform/win32/system/modules.h"
#include "platform/win32/system/win32_file_system.h"
#include "platform/win32/system/win32_host.h"
#include "platform/win32/system/win32_programs.h"
#include "platform/win32/system/win32_registry.h"
#include "platform/win32/toolkit/dpi.h"
#include "platform/win32/toolkit/event_loop.h"
#include "platform/win32/toolkit/win32_platform.h"
#include "process/process.h"
#include "run/main_procedure.h"
#include "settings/version_record.h"

namespace quorvale {
namespace {

bool IsMode(const std::string& text, const char* mode) { return UpperCase(Left(text, 2)) == mode; }

// The host of a preview may count other pixels than we would.
void FollowHost(const std::string& text) {
  try {
    FollowDpiOf(reinterpret_cast<HWND>(ToWindowHandle(SwitchHandle(text))));
  } catch (const Failure&) {
    // `Main` reads the number again, and tells of the failure.
  }
}

int RunProgram(const std::string& text) {
  // What the system loads for us later comes from its own directory and not from the program's.
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
  // A list may name an empty drive; the system's question for a disk would stand in the way of the show.
  SetErrorMode(SEM_FAILCRITICALERRORS);
  const ComApartment components;
  // The windows of a show cover the pixels that are there; those of the configuration are sized for the reader.
  const bool is_show = IsMode(text, "/S") || IsMode(text, "/P");
  if (IsMode(text, "/P")) FollowHost(text);
  Win32Options options;
  options.application_title = kApplicationTitle;
  options.pixels = is_show ? PixelKind::kPhysical : PixelKind::kLogical;
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
  // Only now: a form that fails to load goes as well, and a loop told to end would take the box that says so along.
  if (process.app.Forms.Count() == 0) return 0;
  process.app.LastFormGone = EndEventLoop;
  return RunEventLoop();
}

}  // namespace
}  // namespace quorvale

// The signature is the system's.
// NOLINTNEXTLINE(readability-non-const-parameter)
int WINAPI WinMain(HINSTANCE /*hInstance*/, HINSTANCE /*hPrevInstance*/, LPSTR /*lpCmdLine*/, int /*nShowCmd*/) {
  return quorvale::RunProgram(quorvale::CommandText());
}
