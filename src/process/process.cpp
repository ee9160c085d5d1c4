#include "process/process.h"

namespace quorvale {

Process::Process(Platform& platform, System system_services)
    : app(platform), system(system_services), Settings(system.registry) {}

std::string Process::Option(const std::string& key, const std::string& fallback) {
  return Settings.GetSetting("Options", key, fallback, kHkeyCurrentUser);
}

bool Process::SetOption(const std::string& key, const std::string& value) {
  return Settings.SaveSetting("Options", key, value, kHkeyCurrentUser);
}

}  // namespace quorvale
