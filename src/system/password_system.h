#pragma once

#include <cstdint>
#include <string>

#include "system/window_system.h"

namespace quorvale {

// The system's own password for savers.
class PasswordSystem {
 public:
  virtual ~PasswordSystem() = default;

  // Asks the user for the password, above `owner`, and returns with the answer: the low 16 bits are 0
  // when it was refused.
  virtual std::uint32_t VerifyScreenSavePwd(WindowHandle owner) = 0;

  // Lets the user change the password of that provider; returns when that is over.
  virtual void PwdChangePassword(const std::string& provider, WindowHandle owner) = 0;
};

}  // namespace quorvale
