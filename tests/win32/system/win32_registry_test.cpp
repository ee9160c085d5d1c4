#include "platform/win32/system/win32_registry.h"

#include <gmock/gmock.h>

namespace quorvale {
namespace {

constexpr char kTestKey[] = "Software\\Quorvale tests";

class Win32RegistryTest : public testing::Test {
 protected:
  Win32RegistryTest() { EXPECT_EQ(registry_.RegCreateKeyEx(kHkeyCurrentUser, kTestKey, kKeyAllAccess, key_), 0); }
  ~Win32RegistryTest() override {
    for (const char* below : {"One\\Two\\Three", "One\\Two", "One"}) registry_.RegDeleteKey(key_, below);
    RegistryKey software = 0;
    registry_.RegOpenKeyEx(kHkeyCurrentUser, "Software", kKeyAllAccess, software);
    registry_.RegDeleteKey(software, "Quorvale tests");
    registry_.RegCloseKey(software);
    registry_.RegCloseKey(key_);
  }

  Win32Registry registry_;
  RegistryKey key_ = 0;
};

TEST_F(Win32RegistryTest, ATextCountsItsNul) {
  const std::string columns(512, ' ');
  const struct {
    const char* name;
    std::string stored;
    std::string text;
  } cases[] = {{"bare", "abc", "abc"},
               {"terminated", std::string("abc\0", 4), "abc"},
               {"empty", "", ""},
               {"", "the key's own", "the key's own"},
               {"columns", columns, columns},
               {"long", std::string(20'000, 'x'), std::string(20'000, 'x')}};
  for (const auto& [name, stored, text] : cases) {
    SCOPED_TRACE(name);
    // The bytes behind it in memory are no part of it.
    const std::string behind = stored + "more";
    const auto length = static_cast<std::uint32_t>(stored.size());
    ASSERT_EQ(registry_.RegSetValueEx(key_, name, kRegSz, behind.data(), length), kErrorSuccess);
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    EXPECT_EQ(registry_.RegQueryValueEx(key_, name, type, nullptr, size), kErrorSuccess);
    EXPECT_EQ(type, kRegSz);
    ASSERT_EQ(size, text.size() + 1);
    std::string data(size, '?');
    std::uint32_t room = size - 1;
    EXPECT_EQ(registry_.RegQueryValueEx(key_, name, type, data.data(), room), kErrorMoreData);
    room = size;
    EXPECT_EQ(registry_.RegQueryValueEx(key_, name, type, data.data(), room), kErrorSuccess);
    EXPECT_EQ(data, text + '\0');
  }
}

TEST_F(Win32RegistryTest, ANumberIsItsBytesUntilItIsDeleted) {
  const std::string bytes("\x04\x03\x02\x01", 4);
  registry_.RegSetValueEx(key_, "Number", kRegDword, bytes.data(), 4);
  std::string read(8, '?');
  std::uint32_t type = 0;
  std::uint32_t size = 8;
  EXPECT_EQ(registry_.RegQueryValueEx(key_, "nUMBER", type, read.data(), size), kErrorSuccess);
  EXPECT_EQ(type, kRegDword);
  EXPECT_EQ(read.substr(0, size), bytes);
  EXPECT_EQ(registry_.RegDeleteValue(key_, "NUMBER"), kErrorSuccess);
  EXPECT_EQ(registry_.RegQueryValueEx(key_, "Number", type, nullptr, size), kErrorFileNotFound);
}

TEST_F(Win32RegistryTest, ErrorsHaveTheSystemsNumbers) {
  RegistryKey three = 0;
  ASSERT_EQ(
      registry_.RegCreateKeyEx(kHkeyCurrentUser, std::string(kTestKey) + "\\One\\Two\\Three", kKeyAllAccess, three),
      kErrorSuccess);
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  RegistryKey opened = 0;
  EXPECT_EQ(registry_.RegQueryValueEx(three, "missing", type, nullptr, size), kErrorFileNotFound);
  EXPECT_EQ(registry_.RegDeleteValue(three, "missing"), kErrorFileNotFound);
  EXPECT_EQ(registry_.RegOpenKeyEx(kHkeyCurrentUser, "Software\\Quorvale tests\\none", kKeyRead, opened),
            kErrorFileNotFound);
  EXPECT_EQ(opened, 0U);
  EXPECT_EQ(registry_.RegDeleteKey(key_, "none"), kErrorFileNotFound);
  EXPECT_EQ(registry_.RegDeleteKey(key_, "One\\Two"), kErrorAccessDenied) << "a key below it";
  EXPECT_EQ(registry_.RegOpenKeyEx(kHkeyCurrentUser, "software\\QUORVALE tests\\one", kKeyRead, opened), kErrorSuccess);
  EXPECT_EQ(registry_.RegCloseKey(opened), kErrorSuccess);

  EXPECT_EQ(registry_.RegDeleteKey(key_, "One\\Two\\Three"), kErrorSuccess);
  EXPECT_EQ(registry_.RegQueryValueEx(three, "", type, nullptr, size), kErrorKeyDeleted);
  EXPECT_EQ(registry_.RegCloseKey(three), kErrorSuccess);
  EXPECT_EQ(registry_.RegQueryValueEx(0, "", type, nullptr, size), kErrorInvalidHandle);
}

}  // namespace
}  // namespace quorvale
