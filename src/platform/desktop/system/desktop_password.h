#pragma once

#include "system/password_system.h"

namespace quorvale {

// On Linux the password is the screen locker's business, and savers have no part in it. Should one be asked
// for all the same, nobody has checked it, so the answer is no.
class DesktopPassword : public PasswordSystem {
 public:
  std::uint32_t VerifyScreenSavePwd(WindowHandle /*owner*/) override { return 0; }
  void PwdChangePassword(const std::string& /*provider*/, WindowHandle /*owner*/) override {}
};

}  // namespace quorvale
