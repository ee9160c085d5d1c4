#include "platform/headless/services.h"

#include <cmath>
#include <utility>

#include "base/failure.h"

namespace quorvale {
namespace {

constexpr double kSecondsPerDay = 24.0 * 3600;

}  // namespace

bool RecordedSound::PlaySound(const std::string& path, std::uint32_t flags) {
  log_.push_back("PlaySound " + path + " " + std::to_string(flags));
  played.push_back({path, flags});
  return works;
}

void RecordedPrograms::Start(const std::string& command_line, int window_style) {
  Call("Start " + command_line + " " + std::to_string(window_style));
}

void RecordedPrograms::ShellExecute(const std::string& verb, const std::string& target, int show_command) {
  Call("ShellExecute " + verb + " " + target + " " + std::to_string(show_command));
}

void RecordedPrograms::WinHelp(WindowHandle owner, const std::string& file, std::uint32_t command,
                               std::uintptr_t data) {
  Call("WinHelp " + std::to_string(owner) + " " + file + " " + std::to_string(command) + " " + std::to_string(data));
}

void RecordedPrograms::Call(std::string call) {
  log_.push_back(std::move(call));
  if (!found) throw Failure(FailureNumber::kNotFound, "File not found", "Programs");
}

void RecordedPrograms::OpenDisplaySettings() { log_.emplace_back("OpenDisplaySettings"); }

void RecordedPrograms::SendKeys(const std::string& keys) { log_.push_back("SendKeys " + keys); }

std::uint32_t ScriptedPassword::VerifyScreenSavePwd(WindowHandle owner) {
  log_.push_back("VerifyScreenSavePwd " + std::to_string(owner));
  return user ? user() : 0;
}

void ScriptedPassword::PwdChangePassword(const std::string& provider, WindowHandle owner) {
  log_.push_back("PwdChangePassword " + provider + " " + std::to_string(owner));
}

std::string ScriptedHost::GetSystemDirectory(std::uint32_t size) {
  return system_directory.substr(0, size > 0 ? size - 1 : 0);
}

double ScriptedHost::SecondsSinceMidnight() {
  return std::fmod(clock_start_ + queue_.Milliseconds() / 1000, kSecondsPerDay);
}

void ScriptedHost::EndProcess() {
  log_.emplace_back("EndProcess");
  ++ended;
  throw ProcessEnded();
}

void ScriptedHost::SystemParametersInfo(std::uint32_t action, std::uint32_t parameter) {
  log_.push_back("SystemParametersInfo " + std::to_string(action) + " " + std::to_string(parameter));
}

void ScriptedHost::SetSecondsSinceMidnight(double seconds) { clock_start_ = seconds - queue_.Milliseconds() / 1000; }

}  // namespace quorvale
