#pragma once

#include <cstdint>
#include <string>

namespace quorvale {

// The family of systems that leaves the checking of a saver's password to the system.
inline constexpr std::int32_t kPlatformLocksItself = 2;

// `SystemParametersInfo`: a saver runs, or has stopped.
inline constexpr std::uint32_t kSpiScreenSaverRunning = 97;

// Where the program runs, and what the time is.
class HostSystem {
 public:
  virtual ~HostSystem() = default;

  // The system directory, at most `size` - 1 bytes of it, without a separator at its end.
  virtual std::string GetSystemDirectory(std::uint32_t size) = 0;

  // The program's file name without directory and extension.
  virtual std::string ProgramName() = 0;

  // The system's platform number, as its version record gives it.
  virtual std::int32_t PlatformId() = 0;

  // Sets one of the system's parameters.
  virtual void SystemParametersInfo(std::uint32_t action, std::uint32_t parameter) = 0;

  // Seconds since midnight by the local clock, with fractions.
  virtual double SecondsSinceMidnight() = 0;

  // A number from the clock that differs from one moment to the next.
  virtual std::uint64_t ClockSeed() = 0;

  // Ends the process at once; what holds a system-wide state is released first. On a platform that
  // can't, it throws `ProcessEnded`.
  [[noreturn]] virtual void EndProcess() = 0;
};

}  // namespace quorvale
