#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace quorvale {

// Predefined hives and the other numbers of the system's registry calls that the program uses.
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

  // `size` takes the bytes that `data` has room for and gives the value's size in bytes; a text counts
  // its terminating NUL whether or not it was stored with one. Without `data` only type and size are
  // given; a buffer that is too small gives kErrorMoreData.
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

  // Several writes as one act, for `RegistryWrites`. What is written from `BeginWrites` on is kept as a whole by
  // `CommitWrites` or not at all; no other process sees a part of it. A call that the system failed in between makes
  // the commit fail. After a failed begin there is nothing to end, after a failed commit nothing is kept. Acts don't
  // nest: a begin inside another, and an end without a begin, give kErrorInvalidFunction.
  // A registry that can't do that keeps each write by itself, which is what these do.
  virtual std::int32_t BeginWrites() { return kErrorSuccess; }
  virtual std::int32_t CommitWrites() { return kErrorSuccess; }
  virtual void CancelWrites() {}
};

// Writes that belong together, from its making to `Commit`. Without that they are cancelled.
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

  // The result of the begin. Unless it is kErrorSuccess, whatever is written now would stand by itself.
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
