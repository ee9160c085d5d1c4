#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quorvale {

// The family of systems that check the saver password themselves; savers must not.
inline constexpr std::int32_t kPlatformLocksItself = 2;

// `SystemParametersInfo`: a saver has started or stopped.
inline constexpr std::uint32_t kSpiScreenSaverRunning = 97;

// The machine, the program's place on it, and the clock.
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

  // A seed for random numbers, taken from the clock.
  virtual std::uint64_t ClockSeed() = 0;

  // A seed that this process shares with others of one show. As long as any process runs in a window of a screen saver
  // daemon, all of these get the same seed; the first one after that gets a new one. Other processes get none.
  virtual std::optional<std::uint64_t> ShowSeed() { return std::nullopt; }

  // Ends the process at once, after releasing what affects the whole system. A platform that can't do that throws
  // `ProcessEnded`.
  [[noreturn]] virtual void EndProcess() = 0;
};

}  // namespace quorvale
