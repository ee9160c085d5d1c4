#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "system/registry.h"

namespace quorvale {

// What came of the attempt to read a setting. Only kMissing says that there is none.
enum class SettingRead { kFound, kMissing, kFailed };

// The program's settings: text values in the registry, under one key of its own. Holds no key open and
// caches nothing. A call that fails says so by its result alone.
class CRegSettings {
 public:
  explicit CRegSettings(Registry& registry);

  // Levels of the key path. An empty `value` restores the version record's name; any other is stored
  // with blanks trimmed from both ends.
  void SetCompany(const std::string& value);
  const std::string& Company() const { return company_; }
  void SetAppName(const std::string& value);
  const std::string& AppName() const { return app_name_; }

  // `key` "*" is the section's unnamed default value in all three calls. `lKeyType` is the hive.

  // Removes one value, or with an empty `key` the whole section. True on success.
  bool DeleteSetting(const std::string& section, const std::string& key = "",
                     std::uint32_t lKeyType = kHkeyCurrentUser);

  // The stored text, whatever its type, less its last byte; `fallback` when there is none.
  std::string GetSetting(const std::string& section, const std::string& key, const std::string& fallback = "",
                         std::uint32_t lKeyType = kHkeyCurrentUser);

  // The same for who must tell a setting that is missing from one that can't be read. Only kFound gives `value`.
  SettingRead ReadSetting(const std::string& section, const std::string& key, std::string& value,
                          std::uint32_t lKeyType = kHkeyCurrentUser);

  // Creates the section where it is missing. True on success.
  bool SaveSetting(const std::string& section, const std::string& key, const std::string& setting,
                   std::uint32_t lKeyType = kHkeyCurrentUser);

  // Runs `writes`, whose calls of this object are one act: kept as a whole or not at all, where the platform's
  // registry can do that. True when they are kept. False, and `writes` may not even have run, when that is not to be
  // had or a `SaveSetting` in it failed.
  bool SaveTogether(const std::function<void()>& writes);

 private:
  std::string BuildKeyPath(const std::string& section) const;
  bool Save(const std::string& section, const std::string& key, const std::string& setting, std::uint32_t lKeyType);

  Registry& registry_;
  std::string company_;
  std::string app_name_;
  bool a_save_failed_ = false;
};

}  // namespace quorvale
