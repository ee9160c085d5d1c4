#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "system/registry.h"

namespace quorvale {

// What every registry does. Each platform runs these tests on its own one.
class RegistryRules : public testing::TestWithParam<std::function<std::unique_ptr<Registry>()>> {
 public:
  RegistryRules() { EXPECT_EQ(registry_->RegCreateKeyEx(kHkeyCurrentUser, kKey, kKeyAllAccess, key_), kErrorSuccess); }
  // The system's registry stays as it was.
  ~RegistryRules() override {
    for (const char* below : {"One\\Two\\Three", "One\\Two", "One"}) registry_->RegDeleteKey(key_, below);
    RegistryKey software = 0;
    registry_->RegOpenKeyEx(kHkeyCurrentUser, "Software", kKeyAllAccess, software);
    registry_->RegDeleteKey(software, "Quorvale tests");
    for (const RegistryKey key : {software, key_}) registry_->RegCloseKey(key);
  }

 protected:
  RegistryKey Create(const std::string& path) {
    RegistryKey key = 0;
    EXPECT_EQ(registry_->RegCreateKeyEx(kHkeyCurrentUser, kKey + path, kKeyAllAccess, key), kErrorSuccess);
    return key;
  }
  std::int32_t Open(const std::string& path, std::uint32_t hive = kHkeyCurrentUser) {
    RegistryKey key = 0;
    const std::int32_t result = registry_->RegOpenKeyEx(hive, path, kKeyRead, key);
    EXPECT_EQ(key != 0, result == kErrorSuccess);
    if (key != 0) registry_->RegCloseKey(key);
    return result;
  }
  std::int32_t Set(RegistryKey key, const std::string& name, const std::string& bytes, std::uint32_t type = kRegSz) {
    // The bytes behind it in memory are no part of the value.
    return registry_->RegSetValueEx(key, name, type, (bytes + "more").data(), static_cast<std::uint32_t>(bytes.size()));
  }
  std::int32_t Query(RegistryKey key, const std::string& name) {
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    return registry_->RegQueryValueEx(key, name, type, nullptr, size);
  }

  const std::string kKey = "Software\\Quorvale tests";
  std::unique_ptr<Registry> registry_ = GetParam()();
  RegistryKey key_ = 0;
};

TEST_P(RegistryRules, ATextEndsInANulAndANumberIsItsBytes) {
  using namespace std::string_literals;
  const std::tuple<std::uint32_t, std::string, std::string> values[] = {
      {kRegSz, "text", "text\0"s},
      {kRegSz, "text\0"s, "text\0"s},
      {kRegSz, "", "\0"s},
      {kRegSz, "  a\0b "s, "  a\0b \0"s},
      {kRegSz, std::string(512, ' '), std::string(512, ' ') + '\0'},
      {kRegSz, std::string(20'000, 'x'), std::string(20'000, 'x') + '\0'},
      {kRegDword, "\4\3\2\1"s, "\4\3\2\1"s},
      {3, "", ""},
  };
  for (const auto& [stored_type, stored, read] : values) {
    for (const char* name : {"name", ""}) {
      SCOPED_TRACE(stored.substr(0, 20) + name);
      ASSERT_EQ(Set(key_, name, stored, stored_type), kErrorSuccess);
      std::uint32_t type = 0;
      std::uint32_t size = 0;
      const std::string other_case = *name == '\0' ? "" : "NAME";
      EXPECT_EQ(registry_->RegQueryValueEx(key_, other_case, type, nullptr, size), kErrorSuccess);
      EXPECT_EQ(type, stored_type);
      ASSERT_EQ(size, read.size());
      std::string data(size + 1, '#');
      EXPECT_EQ(registry_->RegQueryValueEx(key_, name, type, data.data(), size), kErrorSuccess);
      EXPECT_EQ(data, read + '#');
      if (size == 0) continue;
      --size;
      EXPECT_EQ(registry_->RegQueryValueEx(key_, name, type, data.data(), size), kErrorMoreData);
      EXPECT_EQ(size, read.size());
    }
  }
}

TEST_P(RegistryRules, KeysComeAndGoLevelByLevel) {
  const RegistryKey three = Create("\\One\\Two\\Three");
  EXPECT_EQ(Open("software\\QUORVALE tests\\one"), kErrorSuccess);
  EXPECT_EQ(Open(kKey + "\\On"), kErrorFileNotFound);
  EXPECT_EQ(Open(kKey, kHkeyLocalMachine), kErrorFileNotFound);
  EXPECT_EQ(Open(kKey, 1), kErrorInvalidHandle) << "no hive";
  EXPECT_EQ(Set(three, "Value", "7"), kErrorSuccess);
  EXPECT_EQ(registry_->RegDeleteKey(key_, "none"), kErrorFileNotFound);
  EXPECT_EQ(registry_->RegDeleteKey(key_, "One\\Two"), kErrorAccessDenied) << "a key below it";
  EXPECT_EQ(registry_->RegDeleteKey(key_, "one\\two\\THREE"), kErrorSuccess);
  EXPECT_EQ(Open(kKey + "\\One\\Two\\Three"), kErrorFileNotFound);

  // A key of the same name is another key, and has none of the old values.
  const RegistryKey again = Create("\\One\\Two\\Three");
  EXPECT_EQ(Query(three, "Value"), kErrorKeyDeleted);
  EXPECT_EQ(Set(three, "Value", "8"), kErrorKeyDeleted);
  EXPECT_EQ(registry_->RegDeleteValue(three, "Value"), kErrorKeyDeleted);
  EXPECT_EQ(Query(again, "Value"), kErrorFileNotFound);
  for (const RegistryKey key : {three, again}) EXPECT_EQ(registry_->RegCloseKey(key), kErrorSuccess);
  EXPECT_EQ(registry_->RegCloseKey(again), kErrorInvalidHandle);
  for (const RegistryKey key : {again, RegistryKey{0}}) EXPECT_EQ(Query(key, "Value"), kErrorInvalidHandle);
}

TEST_P(RegistryRules, AKeyOutlivesItsLastValue) {
  for (const std::string name : {"", "name"}) {
    EXPECT_EQ(Set(key_, name, "x"), kErrorSuccess);
    EXPECT_EQ(registry_->RegDeleteValue(key_, "other"), kErrorFileNotFound);
    EXPECT_EQ(registry_->RegDeleteValue(key_, name.empty() ? name : "NAME"), kErrorSuccess);
    EXPECT_EQ(registry_->RegDeleteValue(key_, name), kErrorFileNotFound);
    EXPECT_EQ(Query(key_, name), kErrorFileNotFound);
  }
  EXPECT_EQ(Open(kKey), kErrorSuccess);
}

TEST_P(RegistryRules, AKeyOpenedForReadingTakesNoValues) {
  RegistryKey key = 0;
  EXPECT_EQ(registry_->RegOpenKeyEx(kHkeyCurrentUser, kKey, kKeyRead, key), kErrorSuccess);
  EXPECT_EQ(Set(key, "Name", "text"), kErrorAccessDenied);
  EXPECT_EQ(registry_->RegDeleteValue(key, "Name"), kErrorAccessDenied);
  EXPECT_EQ(Query(key, "Name"), kErrorFileNotFound);
  registry_->RegCloseKey(key);
}

}  // namespace quorvale
