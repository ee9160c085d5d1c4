#include "settings/reg_settings.h"

#include "base/text.h"
#include "settings/version_record.h"

namespace quorvale {
namespace {

// What the registry calls a value that a caller knows as `key`.
std::string ValueName(const std::string& key) { return key == "*" ? std::string() : key; }

}  // namespace

CRegSettings::CRegSettings(Registry& registry) : registry_(registry), company_(kCompanyName), app_name_(kProductName) {}

void CRegSettings::SetCompany(const std::string& value) { company_ = value.empty() ? kCompanyName : Trim(value); }

void CRegSettings::SetAppName(const std::string& value) { app_name_ = value.empty() ? kProductName : Trim(value); }

bool CRegSettings::DeleteSetting(const std::string& section, const std::string& key, std::uint32_t lKeyType) {
  const bool whole_section = key.empty();
  RegistryKey opened = 0;
  if (registry_.RegOpenKeyEx(lKeyType, BuildKeyPath(whole_section ? "" : section), kKeyAllAccess, opened) !=
      kErrorSuccess) {
    return false;
  }
  const OpenRegistryKey open_key(registry_, opened);
  const std::int32_t result = whole_section ? registry_.RegDeleteKey(open_key.Get(), section)
                                            : registry_.RegDeleteValue(open_key.Get(), ValueName(key));
  return result == kErrorSuccess;
}

std::string CRegSettings::GetSetting(const std::string& section, const std::string& key, const std::string& fallback,
                                     std::uint32_t lKeyType) {
  RegistryKey opened = 0;
  if (registry_.RegOpenKeyEx(lKeyType, BuildKeyPath(section), kKeyAllAccess, opened) != kErrorSuccess) return fallback;
  const OpenRegistryKey open_key(registry_, opened);
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  if (registry_.RegQueryValueEx(open_key.Get(), ValueName(key), type, nullptr, size) != kErrorSuccess || size == 0) {
    return fallback;
  }
  std::string value(size, ' ');
  std::uint32_t room = size;
  if (registry_.RegQueryValueEx(open_key.Get(), ValueName(key), type, value.data(), room) != kErrorSuccess) {
    return fallback;
  }
  value.resize(size - 1);
  return value;
}

bool CRegSettings::SaveSetting(const std::string& section, const std::string& key, const std::string& setting,
                               std::uint32_t lKeyType) {
  RegistryKey opened = 0;
  if (registry_.RegCreateKeyEx(lKeyType, BuildKeyPath(section), kKeyAllAccess, opened) != kErrorSuccess) return false;
  const OpenRegistryKey open_key(registry_, opened);
  return registry_.RegSetValueEx(open_key.Get(), ValueName(key), kRegSz, setting.data(),
                                 static_cast<std::uint32_t>(setting.size())) == kErrorSuccess;
}

std::string CRegSettings::BuildKeyPath(const std::string& section) const {
  std::string path = "Software\\" + company_ + "\\" + app_name_;
  if (!section.empty()) path += "\\" + section;
  return path;
}

}  // namespace quorvale
