#pragma once

#include "platform/desktop/system/desktop_host.h"
#include "platform/desktop/system/desktop_password.h"
#include "platform/desktop/system/desktop_programs.h"
#include "platform/desktop/system/posix_file_system.h"
#include "platform/desktop/system/sdl_sound_player.h"
#include "platform/desktop/system/settings_location.h"
#include "platform/desktop/system/sqlite_registry.h"
#include "platform/desktop/toolkit/desktop_platform.h"
#include "process/process.h"

namespace quorvale {

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
  DesktopPassword password_;
  Process core{platform_, {registry_, files_, platform_.Windows(), sound_, programs_, host_, password_}};
};

}  // namespace quorvale
