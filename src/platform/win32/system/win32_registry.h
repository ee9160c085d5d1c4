#pragma once

#include "system/registry.h"

namespace quorvale {

// The system's registry, through its narrow calls of the same names.
class Win32Registry : public Registry {
 public:
  std::int32_t RegOpenKeyEx(std::uint32_t hive, const std::string& path, std::uint32_t access,
                            RegistryKey& key) override;
  std::int32_t RegCreateKeyEx(std::uint32_t hive, const std::string& path, std::uint32_t access,
                              RegistryKey& key) override;
  std::int32_t RegQueryValueEx(RegistryKey key, const std::string& name, std::uint32_t& type, char* data,
                               std::uint32_t& size) override;
  std::int32_t RegSetValueEx(RegistryKey key, const std::string& name, std::uint32_t type, const char* data,
                             std::uint32_t size) override;
  std::int32_t RegDeleteValue(RegistryKey key, const std::string& name) override;
  std::int32_t RegDeleteKey(RegistryKey key, const std::string& name) override;
  std::int32_t RegCloseKey(RegistryKey key) override;
};

}  // namespace quorvale
