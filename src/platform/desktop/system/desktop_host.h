#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/desktop/system/shared_seed.h"
#include "system/host_system.h"
#include "system/password_system.h"

namespace quorvale {

// The system directory is the directory of the running program.
class DesktopHost : public HostSystem {
 public:
  // `before_exit` releases what outlives the process. Its exceptions are ignored. A process that runs in the window of
  // a screen saver daemon names the directory of `SharedSeed`; others leave it empty.
  explicit DesktopHost(std::function<void()> before_exit, std::string shared_directory = {});

  std::string GetSystemDirectory(std::uint32_t size) override;
  std::string ProgramName() override { return program_name_; }
  double SecondsSinceMidnight() override;
  std::uint64_t ClockSeed() override;
  std::optional<std::uint64_t> ShowSeed() override { return shared_seed_.Join(ClockSeed()); }
  [[noreturn]] void EndProcess() override;
  std::int32_t PlatformId() override { return kPlatformLocksItself; }
  // Nothing: Linux has no such state.
  void SystemParametersInfo(std::uint32_t /*action*/, std::uint32_t /*parameter*/) override {}

 private:
  std::function<void()> before_exit_;
  std::string directory_;
  std::string program_name_;
  SharedSeed shared_seed_;
};

// Linux has no saver password: screen lockers ask for one. The check is refused.
class DesktopPassword : public PasswordSystem {
 public:
  std::uint32_t VerifyScreenSavePwd(WindowHandle /*owner*/) override { return 0; }
  void PwdChangePassword(const std::string& /*provider*/, WindowHandle /*owner*/) override {}
};

}  // namespace quorvale
