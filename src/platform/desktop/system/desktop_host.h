#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "system/host_system.h"

namespace quorvale {

// The system directory is the one that the running program lies in.
class DesktopHost : public HostSystem {
 public:
  // `before_exit` releases what outlives the process, and what it throws is dropped.
  explicit DesktopHost(std::function<void()> before_exit);

  std::string GetSystemDirectory(std::uint32_t size) override;
  std::string ProgramName() override { return program_name_; }
  double SecondsSinceMidnight() override;
  std::uint64_t ClockSeed() override;
  [[noreturn]] void EndProcess() override;
  std::int32_t PlatformId() override { return kPlatformLocksItself; }
  // Linux has no state of a running saver to be told of.
  void SystemParametersInfo(std::uint32_t /*action*/, std::uint32_t /*parameter*/) override {}

 private:
  std::function<void()> before_exit_;
  std::string directory_;
  std::string program_name_;
};

}  // namespace quorvale
