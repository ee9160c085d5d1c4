#include "settings/reg_settings.h"

#include <utility>

#include "base/application_info.h"
#include "base/text.h"

namespace quorvale {
namespace {

// The registry's value name for `key`.
std::string ValueName(const std::string& key) { return key == "*" ? std::string() : key; }

// The reason why there is no value, from the failed call's result.
SettingRead Unread(std::int32_t result) {
  return result == kErrorFileNotFound ? SettingRead::kMissing : SettingRead::kFailed;
}

}  // namespace

CRegSettings::CRegSettings(Registry& registry) : registry_(registry), company_(kCompanyName), app_name_(kProductName) {}

void CRegSettings::SetCompany(const std::string& value) { company_ = value.empty() ? kCompanyName : Trim(value); }

void CRegSettings::SetAppName(const std::string& value) { app_name_ = value.empty() ? kProductName : Trim(value); }

bool CRegSettings::DeleteSetting(const std::string& section, const std::string& key, std::uint32_t hive) {
  const bool whole_section = key.empty();
  RegistryKey opened = 0;
  if (registry_.RegOpenKeyEx(hive, BuildKeyPath(whole_section ? "" : section), kKeyAllAccess, opened) !=
      kErrorSuccess) {
    return false;
  }
  const OpenRegistryKey open_key(registry_, opened);
  const std::int32_t result = whole_section ? registry_.RegDeleteKey(open_key.Get(), section)
                                            : registry_.RegDeleteValue(open_key.Get(), ValueName(key));
  return result == kErrorSuccess;
}

std::string CRegSettings::GetSetting(const std::string& section, const std::string& key, const std::string& fallback,
                                     std::uint32_t hive) {
  std::string value;
  return ReadSetting(section, key, value, hive) == SettingRead::kFound ? value : fallback;
}

SettingRead CRegSettings::ReadSetting(const std::string& section, const std::string& key, std::string& value,
                                      std::uint32_t hive) {
  RegistryKey opened = 0;
  const std::int32_t found = registry_.RegOpenKeyEx(hive, BuildKeyPath(section), kKeyAllAccess, opened);
  if (found != kErrorSuccess) return Unread(found);
  const OpenRegistryKey open_key(registry_, opened);
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  const std::int32_t sized = registry_.RegQueryValueEx(open_key.Get(), ValueName(key), type, nullptr, size);
  if (sized != kErrorSuccess) return Unread(sized);
  if (size == 0) return SettingRead::kMissing;
  std::string text(size, ' ');
  std::uint32_t room = size;
  const std::int32_t read = registry_.RegQueryValueEx(open_key.Get(), ValueName(key), type, text.data(), room);
  if (read != kErrorSuccess) return Unread(read);
  text.resize(size - 1);
  value = std::move(text);
  return SettingRead::kFound;
}

bool CRegSettings::SaveSetting(const std::string& section, const std::string& key, const std::string& setting,
                               std::uint32_t hive) {
  const bool saved = Save(section, key, setting, hive);
  a_save_failed_ = a_save_failed_ || !saved;
  return saved;
}

bool CRegSettings::Save(const std::string& section, const std::string& key, const std::string& setting,
                        std::uint32_t hive) {
  RegistryKey opened = 0;
  if (registry_.RegCreateKeyEx(hive, BuildKeyPath(section), kKeyAllAccess, opened) != kErrorSuccess) return false;
  const OpenRegistryKey open_key(registry_, opened);
  return registry_.RegSetValueEx(open_key.Get(), ValueName(key), kRegSz, setting.data(),
                                 static_cast<std::uint32_t>(setting.size())) == kErrorSuccess;
}

bool CRegSettings::SaveTogether(const std::function<void()>& writes) {
  RegistryWrites transaction(registry_);
  if (transaction.Begun() != kErrorSuccess) return false;
  a_save_failed_ = false;
  writes();
  return !a_save_failed_ && transaction.Commit() == kErrorSuccess;
}

std::string CRegSettings::BuildKeyPath(const std::string& section) const {
  std::string path = "Software\\" + company_ + "\\" + app_name_;
  if (!section.empty()) path += "\\" + section;
  return path;
}

}  // namespace quorvale
