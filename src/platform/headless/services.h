#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/headless/event_queue.h"
#include "system/host_system.h"
#include "system/password_system.h"
#include "system/programs.h"
#include "system/sound_player.h"

namespace quorvale {

// The calls of all services, in order. Each is a text: the name and the arguments, separated by blanks.
using CallLog = std::vector<std::string>;

// Records sounds instead of playing them.
class RecordedSound : public SoundPlayer {
 public:
  explicit RecordedSound(CallLog& log) : log_(log) {}
  bool PlaySound(const std::string& path, std::uint32_t flags) override;

  struct Played {
    std::string path;
    std::uint32_t flags = 0;
    bool operator==(const Played&) const = default;
  };
  std::vector<Played> played;
  // The result of `PlaySound`.
  bool works = true;

 private:
  CallLog& log_;
};

// Records the programs that it should start.
class RecordedPrograms : public Programs {
 public:
  explicit RecordedPrograms(CallLog& log) : log_(log) {}
  void Start(const std::string& command_line, int window_style) override;
  void OpenDisplaySettings() override;
  void ShellExecute(const std::string& verb, const std::string& target, int show_command) override;
  void WinHelp(WindowHandle owner, const std::string& file, std::uint32_t command, std::uintptr_t data) override;
  void SendKeys(const std::string& keys) override;
  std::string SystemInformationTool() override { return information_tool; }

  // The desktop's own tool, if it has one.
  std::string information_tool;
  // If false, calls that start or open something fail with kNotFound.
  bool found = true;

 private:
  void Call(std::string call);

  CallLog& log_;
};

// Answers the password question instead of a user.
class ScriptedPassword : public PasswordSystem {
 public:
  explicit ScriptedPassword(CallLog& log) : log_(log) {}
  std::uint32_t VerifyScreenSavePwd(WindowHandle owner) override;
  void PwdChangePassword(const std::string& provider, WindowHandle owner) override;

  // Runs while the password dialog is open and returns the answer. Without it, the password is refused.
  std::function<std::uint32_t()> user;

 private:
  CallLog& log_;
};

// A simulated machine with the queue's clock.
class ScriptedHost : public HostSystem {
 public:
  ScriptedHost(const EventQueue& queue, CallLog& log) : queue_(queue), log_(log) {}
  std::string GetSystemDirectory(std::uint32_t size) override;
  std::string ProgramName() override { return program_name; }
  double SecondsSinceMidnight() override;
  std::uint64_t ClockSeed() override { return clock_seed; }
  std::optional<std::uint64_t> ShowSeed() override { return show_seed; }
  // Throws `ProcessEnded`.
  [[noreturn]] void EndProcess() override;
  std::int32_t PlatformId() override { return platform_id; }
  void SystemParametersInfo(std::uint32_t action, std::uint32_t parameter) override;

  std::string system_directory = "C:\\WINDOWS\\SYSTEM";
  std::string program_name = "Quorvale";
  std::int32_t platform_id = kPlatformLocksItself;
  std::uint64_t clock_seed = 1;
  // Set it for processes in the windows of a screen saver daemon.
  std::optional<std::uint64_t> show_seed;
  // How often the process was ended.
  int ended = 0;

  // Sets the current time of day, which is noon at first and wraps at midnight.
  void SetSecondsSinceMidnight(double seconds);

 private:
  const EventQueue& queue_;
  CallLog& log_;
  double clock_start_ = 12 * 3600;
};

}  // namespace quorvale
