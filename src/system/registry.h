#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace quorvale {

// Predefined hives and other constants of the registry calls.
inline constexpr std::uint32_t kHkeyClassesRoot = 0x80000000;
inline constexpr std::uint32_t kHkeyCurrentUser = 0x80000001;
inline constexpr std::uint32_t kHkeyLocalMachine = 0x80000002;
inline constexpr std::uint32_t kHkeyDynData = 0x80000006;
inline constexpr std::uint32_t kKeyAllAccess = 0xF003F;
inline constexpr std::uint32_t kKeyRead = 0x20019;
inline constexpr std::uint32_t kRegSz = 1;
inline constexpr std::uint32_t kRegDword = 4;

// Results of a registry call; any other non-zero number is a failure too.
inline constexpr std::int32_t kErrorSuccess = 0;
inline constexpr std::int32_t kErrorInvalidFunction = 1;
inline constexpr std::int32_t kErrorFileNotFound = 2;
inline constexpr std::int32_t kErrorAccessDenied = 5;
inline constexpr std::int32_t kErrorInvalidHandle = 6;
inline constexpr std::int32_t kErrorWriteFault = 29;
inline constexpr std::int32_t kErrorReadFault = 30;
inline constexpr std::int32_t kErrorMoreData = 234;
inline constexpr std::int32_t kErrorKeyDeleted = 1018;  // the open key has been deleted since

// The number that a kRegDword value holds: its first four bytes, the lowest first. Missing bytes count as 0.
inline std::uint32_t DwordOf(const std::string& value) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < sizeof number && i < value.size(); ++i) {
    number |= static_cast<std::uint32_t>(static_cast<unsigned char>(value[i])) << 8 * i;
  }
  return number;
}

// An open key; 0 is none.
using RegistryKey = std::uint64_t;

// The registry calls, as Windows' ANSI calls of these names behave. Keys and value names compare
// without regard to ASCII case; the empty name is a key's default value. No call throws.
class Registry {
 public:
  virtual ~Registry() = default;

  virtual std::int32_t RegOpenKeyEx(std::uint32_t hive, const std::string& path, std::uint32_t access,
                                    RegistryKey& key) = 0;

  // Opens the key and creates every level of `path` that is missing.
  virtual std::int32_t RegCreateKeyEx(std::uint32_t hive, const std::string& path, std::uint32_t access,
                                      RegistryKey& key) = 0;

  // In: `size` is the capacity of `data` in bytes. Out: the size of the value; for texts this includes a terminating
  // NUL even if none was stored. With null `data` returns only type and size. Gives kErrorMoreData if the buffer is too
  // small.
  virtual std::int32_t RegQueryValueEx(RegistryKey key, const std::string& name, std::uint32_t& type, char* data,
                                       std::uint32_t& size) = 0;

  // `size` in bytes; for a text it may leave the terminating NUL out.
  virtual std::int32_t RegSetValueEx(RegistryKey key, const std::string& name, std::uint32_t type, const char* data,
                                     std::uint32_t size) = 0;

  virtual std::int32_t RegDeleteValue(RegistryKey key, const std::string& name) = 0;

  // Deletes the key `name` below `key` with its values: kErrorFileNotFound where there is none,
  // kErrorAccessDenied where it has keys below it.
  virtual std::int32_t RegDeleteKey(RegistryKey key, const std::string& name) = 0;

  virtual std::int32_t RegCloseKey(RegistryKey key) = 0;

  // A transaction, for `RegistryWrites`: the writes after `BeginWrites` take effect together at `CommitWrites`, or not
  // at all. Other processes never see a part of them. A write that fails in between makes the commit fail. After a
  // failed begin there is nothing to end; after a failed commit nothing is kept. Transactions don't nest: a second
  // begin, or an end without a begin, gives kErrorInvalidFunction. These defaults are for registries without
  // transactions: each write takes effect at once.
  virtual std::int32_t BeginWrites() { return kErrorSuccess; }
  virtual std::int32_t CommitWrites() { return kErrorSuccess; }
  virtual void CancelWrites() {}
};

// A transaction from construction to `Commit`. The destructor cancels what was not committed.
class RegistryWrites {
 public:
  explicit RegistryWrites(Registry& registry) : registry_(registry), begun_(registry.BeginWrites()) {
    is_open_ = begun_ == kErrorSuccess;
  }
  ~RegistryWrites() {
    if (is_open_) registry_.CancelWrites();
  }
  RegistryWrites(const RegistryWrites&) = delete;
  RegistryWrites& operator=(const RegistryWrites&) = delete;

  // The result of `BeginWrites`. Unless it is kErrorSuccess, there is no transaction.
  std::int32_t Begun() const { return begun_; }

  std::int32_t Commit() {
    if (!std::exchange(is_open_, false)) return begun_;
    return registry_.CommitWrites();
  }

 private:
  Registry& registry_;
  std::int32_t begun_;
  bool is_open_ = false;
};

// Holds an open key and closes it.
class OpenRegistryKey {
 public:
  OpenRegistryKey(Registry& registry, RegistryKey key) : registry_(registry), key_(key) {}
  ~OpenRegistryKey() { registry_.RegCloseKey(key_); }
  OpenRegistryKey(const OpenRegistryKey&) = delete;
  OpenRegistryKey& operator=(const OpenRegistryKey&) = delete;

  RegistryKey Get() const { return key_; }

 private:
  Registry& registry_;
  RegistryKey key_;
};

}  // namespace quorvale
