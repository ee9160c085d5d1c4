#pragma once

#include "system/host_system.h"

namespace quorvale {

class Win32Host : public HostSystem {
 public:
  std::string GetSystemDirectory(std::uint32_t size) override;
  std::string ProgramName() override;
  std::int32_t PlatformId() override;
  void SystemParametersInfo(std::uint32_t action, std::uint32_t parameter) override;
  double SecondsSinceMidnight() override;
  std::uint64_t ClockSeed() override;
  [[noreturn]] void EndProcess() override;
};

}  // namespace quorvale
