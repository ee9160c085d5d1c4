#include "saver/saver_password.h"

#include <algorithm>

#include "base/numbers.h"
#include "process/process.h"
#include "system/host_system.h"
#include "system/password_system.h"
#include "system/registry.h"

namespace quorvale {
namespace {

constexpr std::uint32_t kBufferSize = 255;
constexpr std::uint32_t kLowWord = 0xFFFF;
constexpr std::size_t kDigits = 3;

}  // namespace

void ReadPasswordState(Process& process) {
  const std::string flag =
      ReadKeyValue(process.system.registry, kHkeyCurrentUser, "Control Panel\\Desktop", "ScreenSaveUsePassword");
  process.show.use_password = RoundToInt16(LenientParse(flag));
  process.show.platform_id = process.system.host.PlatformId();
}

bool IsPasswordInForce(const ShowState& show) {
  return show.platform_id != kPlatformLocksItself && show.use_password != 0;
}

void ReportSaverRunning(Process& process, bool running) {
  if (IsPasswordInForce(process.show))
    process.system.host.SystemParametersInfo(kSpiScreenSaverRunning, running ? 1 : 0);
}

bool VerifyPassword(PasswordSystem& password, WindowHandle owner) {
  return (password.VerifyScreenSavePwd(owner) & kLowWord) != 0;
}

void ChangePassword(Process& process) {
  process.system.password.PwdChangePassword("SCRSAVE", ToWindowHandle(process.system_hwnd));
}

std::string ReadKeyValue(Registry& registry, std::uint32_t hive, const std::string& path, const std::string& name) {
  if (hive < kHkeyClassesRoot || hive > kHkeyDynData) return {};
  RegistryKey opened = 0;
  if (registry.RegOpenKeyEx(hive, path, kKeyRead, opened) != kErrorSuccess) return {};
  const OpenRegistryKey key(registry, opened);
  std::string buffer(kBufferSize, ' ');
  std::uint32_t type = 0;
  std::uint32_t size = kBufferSize;
  if (registry.RegQueryValueEx(key.Get(), name, type, buffer.data(), size) != kErrorSuccess || size == 0) return {};
  if (type == kRegDword) {
    buffer = std::to_string(DwordOf(buffer));
    if (buffer.size() < kDigits) buffer.insert(0, kDigits - buffer.size(), '0');
  }
  return buffer.substr(0, std::min<std::size_t>(size - 1, buffer.size()));
}

}  // namespace quorvale
