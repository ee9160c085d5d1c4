#pragma once

#include <optional>

#include "platform/win32/system/modules.h"
#include "system/password_system.h"
#include "system/sound_player.h"

namespace quorvale {

// Services by libraries of the system that are loaded when they are first needed.

// The system's password dialogs. Most systems have none today.
class Win32Password : public PasswordSystem {
 public:
  // Refuses if there is no library that could check the password.
  std::uint32_t VerifyScreenSavePwd(WindowHandle owner) override;
  // Does nothing if there is no such dialog.
  void PwdChangePassword(const std::string& provider, WindowHandle owner) override;
};

// The result is the system's own. Some systems report success before they have read the file.
class Win32SoundPlayer : public SoundPlayer {
 public:
  bool PlaySound(const std::string& path, std::uint32_t flags) override;

 private:
  // Stays loaded after the first sound, which may still be playing.
  std::optional<LoadedLibrary> multimedia_;
};

}  // namespace quorvale
