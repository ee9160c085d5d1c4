#include "platform/headless/services.h"

#include <cmath>

#include "base/ending.h"
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
  log_.push_back("Start " + command_line + " " + std::to_string(window_style));
  if (!found) throw Failure(FailureNumber::kNotFound, "File not found", "Programs");
}

void RecordedPrograms::OpenDisplaySettings() { log_.emplace_back("OpenDisplaySettings"); }

void RecordedPrograms::SendKeys(const std::string& keys) { log_.push_back("SendKeys " + keys); }

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

void ScriptedHost::SetSecondsSinceMidnight(double seconds) { clock_start_ = seconds - queue_.Milliseconds() / 1000; }

}  // namespace quorvale
