#include "platform/win32/system/win32_registry.h"

#include "platform/win32/windows_api.h"

namespace quorvale {
namespace {

// The predefined hive handles are sign-extended on 64-bit Windows.
HKEY ToHive(std::uint32_t hive) {
  return reinterpret_cast<HKEY>(static_cast<std::intptr_t>(static_cast<std::int32_t>(hive)));
}

HKEY ToHkey(RegistryKey key) { return reinterpret_cast<HKEY>(static_cast<std::uintptr_t>(key)); }

RegistryKey ToKey(HKEY key) { return reinterpret_cast<std::uintptr_t>(key); }

}  // namespace

std::int32_t Win32Registry::RegOpenKeyEx(std::uint32_t hive, const std::string& path, std::uint32_t access,
                                         RegistryKey& key) {
  HKEY opened = nullptr;
  const LSTATUS result = RegOpenKeyExA(ToHive(hive), path.c_str(), 0, access, &opened);
  key = ToKey(opened);
  return result;
}

std::int32_t Win32Registry::RegCreateKeyEx(std::uint32_t hive, const std::string& path, std::uint32_t access,
                                           RegistryKey& key) {
  HKEY opened = nullptr;
  const LSTATUS result = RegCreateKeyExA(ToHive(hive), path.c_str(), 0, nullptr, 0, access, nullptr, &opened, nullptr);
  key = ToKey(opened);
  return result;
}

std::int32_t Win32Registry::RegQueryValueEx(RegistryKey key, const std::string& name, std::uint32_t& type, char* data,
                                            std::uint32_t& size) {
  DWORD found_type = type;
  DWORD found_size = size;
  const LSTATUS result =
      RegQueryValueExA(ToHkey(key), name.c_str(), nullptr, &found_type, reinterpret_cast<BYTE*>(data), &found_size);
  type = found_type;
  size = found_size;
  return result;
}

std::int32_t Win32Registry::RegSetValueEx(RegistryKey key, const std::string& name, std::uint32_t type,
                                          const char* data, std::uint32_t size) {
  // A text that is stored without its NUL is returned with or without one, depending on what lies behind it in memory.
  std::string bytes(data, size);
  if (type == REG_SZ && !bytes.ends_with('\0')) bytes += '\0';
  return RegSetValueExA(ToHkey(key), name.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                        static_cast<DWORD>(bytes.size()));
}

std::int32_t Win32Registry::RegDeleteValue(RegistryKey key, const std::string& name) {
  return RegDeleteValueA(ToHkey(key), name.c_str());
}

std::int32_t Win32Registry::RegDeleteKey(RegistryKey key, const std::string& name) {
  return RegDeleteKeyA(ToHkey(key), name.c_str());
}

std::int32_t Win32Registry::RegCloseKey(RegistryKey key) { return ::RegCloseKey(ToHkey(key)); }

}  // namespace quorvale
