#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "system/registry.h"

namespace quorvale {

// The result of reading a setting. kFailed does not say whether the setting exists.
enum class SettingRead { kFound, kMissing, kFailed };

// The program's settings: text values in the registry, below the program's key. Keeps no key open and caches nothing.
// Failures are reported by the result only; nothing is thrown.
class CRegSettings {
 public:
  explicit CRegSettings(Registry& registry);

  // Two levels of the key path. Blanks around `value` are removed; an empty one restores the name of the version
  // record.
  void SetCompany(const std::string& value);
  const std::string& Company() const { return company_; }
  void SetAppName(const std::string& value);
  const std::string& AppName() const { return app_name_; }

  // `key` "*" is the section's unnamed default value in all three calls.

  // Removes one value, or with an empty `key` the whole section. True on success.
  bool DeleteSetting(const std::string& section, const std::string& key = "", std::uint32_t hive = kHkeyCurrentUser);

  // The stored text, whatever its type, less its last byte; `fallback` when there is none.
  std::string GetSetting(const std::string& section, const std::string& key, const std::string& fallback = "",
                         std::uint32_t hive = kHkeyCurrentUser);

  // The same for callers that must distinguish a missing setting from an unreadable one. Sets `value` on kFound only.
  SettingRead ReadSetting(const std::string& section, const std::string& key, std::string& value,
                          std::uint32_t hive = kHkeyCurrentUser);

  // Creates the section if necessary. True on success.
  bool SaveSetting(const std::string& section, const std::string& key, const std::string& setting,
                   std::uint32_t hive = kHkeyCurrentUser);

  // Runs `writes` as one transaction on registries that support it: its writes are kept together or not at all. True
  // when they are kept. False when the transaction or a `SaveSetting` in it failed; `writes` may then not have run.
  bool SaveTogether(const std::function<void()>& writes);

 private:
  std::string BuildKeyPath(const std::string& section) const;
  bool Save(const std::string& section, const std::string& key, const std::string& setting, std::uint32_t hive);

  Registry& registry_;
  std::string company_;
  std::string app_name_;
  bool a_save_failed_ = false;
};

}  // namespace quorvale
