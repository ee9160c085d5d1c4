#pragma once

#include <cstdint>
#include <string>

#include "system/window_system.h"

namespace quorvale {

// The system's own password for savers.
class PasswordSystem {
 public:
  virtual ~PasswordSystem() = default;

  // Asks the user for the password in a dialog above `owner`. The low 16 bits of the result are 0 if the check failed
  // or was cancelled.
  virtual std::uint32_t VerifyScreenSavePwd(WindowHandle owner) = 0;

  // Opens the dialog in which the user changes the password of `provider`; returns when it is closed.
  virtual void PwdChangePassword(const std::string& provider, WindowHandle owner) = 0;
};

}  // namespace quorvale
