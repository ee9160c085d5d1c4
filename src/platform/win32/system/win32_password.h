#pragma once

#include "system/password_system.h"

namespace quorvale {

// The system's password libraries, loaded only when they are called. Few systems have them today.
class Win32Password : public PasswordSystem {
 public:
  // Refused where there is nobody to check the password.
  std::uint32_t VerifyScreenSavePwd(WindowHandle owner) override;
  // Does nothing where there is no such dialog.
  void PwdChangePassword(const std::string& provider, WindowHandle owner) override;
};

}  // namespace quorvale
