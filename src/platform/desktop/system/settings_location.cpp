#include "platform/desktop/system/settings_location.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>

namespace quorvale {
namespace {

// A relative path would lie somewhere else with each working directory, so it counts as none.
std::string AbsolutePathFrom(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && value[0] == '/' ? value : "";
}

}  // namespace

std::string HomeDirectory() {
  std::string home = AbsolutePathFrom("HOME");
  if (!home.empty()) return home;
  const passwd* user = getpwuid(getuid());
  return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "";
}

std::string SettingsDirectory() {
  std::string base = AbsolutePathFrom("XDG_CONFIG_HOME");
  if (base.empty()) {
    base = HomeDirectory();
    if (base.empty()) return {};
    base += "/.config";
  }
  return base + "/quorvale";
}

bool CreateDirectories(const std::string& directory) {
  for (std::size_t end = directory.find('/', 1); end != std::string::npos; end = directory.find('/', end + 1)) {
    mkdir(directory.substr(0, end).c_str(), S_IRWXU);
  }
  mkdir(directory.c_str(), S_IRWXU);
  struct stat status {};
  return stat(directory.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace quorvale
