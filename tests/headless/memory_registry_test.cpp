#include "platform/headless/memory_registry.h"

#include <gmock/gmock.h>

namespace quorvale {
namespace {

class MemoryRegistryTest : public ::testing::Test {
 protected:
  RegistryKey Create(const std::string& path, std::uint32_t access = kKeyAllAccess) {
    RegistryKey key = 0;
    EXPECT_EQ(registry.RegCreateKeyEx(kHkeyCurrentUser, path, access, key), kErrorSuccess);
    return key;
  }
  std::int32_t Open(const std::string& path, RegistryKey& key) {
    return registry.RegOpenKeyEx(kHkeyCurrentUser, path, kKeyRead, key);
  }

  MemoryRegistry registry;
};

TEST_F(MemoryRegistryTest, TextsEndInANulHoweverTheyWereStored) {
  const RegistryKey key = Create("Software\\Test");
  const struct {
    const char* name;
    std::uint32_t stored;
    std::string text;
  } cases[] = {{"bare", 3, "abc"}, {"terminated", 4, "abc"}, {"empty", 0, ""}, {"", 3, "abc"}};
  for (const auto& [name, stored, text] : cases) {
    SCOPED_TRACE(name);
    EXPECT_EQ(registry.RegSetValueEx(key, name, kRegSz, "abc", stored), kErrorSuccess);
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    EXPECT_EQ(registry.RegQueryValueEx(key, name, type, nullptr, size), kErrorSuccess);
    EXPECT_EQ(size, text.size() + 1);
    EXPECT_EQ(type, kRegSz);
    std::string data(size, '?');
    std::uint32_t room = size - 1;
    EXPECT_EQ(registry.RegQueryValueEx(key, name, type, data.data(), room), kErrorMoreData);
    EXPECT_EQ(room, size);
    EXPECT_EQ(registry.RegQueryValueEx(key, name, type, data.data(), room), kErrorSuccess);
    EXPECT_EQ(data, text + '\0');
    EXPECT_EQ(registry.Text(kHkeyCurrentUser, "software\\test", name), text);
  }
}

TEST_F(MemoryRegistryTest, DeletesKeysWithoutSubkeysOnly) {
  const RegistryKey top = Create("Top");
  const RegistryKey below = Create("TOP\\Below");
  registry.RegSetValueEx(below, "v", kRegSz, "x", 1);
  EXPECT_EQ(registry.RegDeleteValue(below, "V"), kErrorSuccess);
  EXPECT_EQ(registry.RegDeleteValue(below, "V"), kErrorFileNotFound);
  EXPECT_TRUE(registry.HasKey(kHkeyCurrentUser, "top\\below"));

  RegistryKey root = 0;
  ASSERT_EQ(Open("", root), kErrorSuccess);
  EXPECT_EQ(registry.RegDeleteKey(root, "top"), kErrorAccessDenied);
  EXPECT_EQ(registry.RegDeleteKey(top, "below"), kErrorSuccess);
  EXPECT_EQ(registry.RegDeleteKey(top, "below"), kErrorFileNotFound);
  EXPECT_EQ(registry.RegSetValueEx(below, "v", kRegSz, "x", 1), kErrorKeyDeleted);
  EXPECT_EQ(registry.RegDeleteKey(root, "top"), kErrorSuccess);
  RegistryKey gone = 0;
  EXPECT_EQ(Open("top", gone), kErrorFileNotFound);
  EXPECT_EQ(registry.OpenKeys(), 3);
}

TEST_F(MemoryRegistryTest, ChecksTheAccessOfHandles) {
  registry.RegCloseKey(Create("Key"));
  RegistryKey key = 0;
  ASSERT_EQ(Open("Key", key), kErrorSuccess);
  EXPECT_EQ(registry.RegSetValueEx(key, "v", kRegSz, "x", 1), kErrorAccessDenied);
  EXPECT_EQ(registry.RegCloseKey(key), kErrorSuccess);
  EXPECT_EQ(registry.RegCloseKey(key), kErrorInvalidHandle);
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  EXPECT_EQ(registry.RegQueryValueEx(key, "v", type, nullptr, size), kErrorInvalidHandle);
  EXPECT_EQ(registry.RegOpenKeyEx(1, "Key", kKeyRead, key), kErrorInvalidHandle);
}

TEST_F(MemoryRegistryTest, FailsAsScripted) {
  registry.failures.FailCall(RegistryCall::kOpen, 2, kErrorAccessDenied);
  registry.failures.FailCall(RegistryCall::kAny, 4, kErrorWriteFault);
  const RegistryKey key = Create("Key");
  RegistryKey opened = 0;
  const auto set = [&] { return registry.RegSetValueEx(key, "v", kRegSz, "x", 1); };
  EXPECT_EQ(Open("Key", opened), kErrorSuccess);
  EXPECT_EQ(Open("Key", opened), kErrorAccessDenied);
  EXPECT_EQ(set(), kErrorWriteFault);
  EXPECT_EQ(registry.Text(kHkeyCurrentUser, "Key", "v"), std::nullopt);
  EXPECT_EQ(set(), kErrorSuccess);
  registry.failures.FailEvery(RegistryCall::kSet, kErrorWriteFault);
  for (int i = 0; i < 2; ++i) EXPECT_EQ(set(), kErrorWriteFault);
  registry.failures.Forget();
  EXPECT_EQ(set(), kErrorSuccess);
}

TEST_F(MemoryRegistryTest, CommitsTransactionsWholeOrNotAtAll) {
  const auto set = [this](const char* text) {
    EXPECT_EQ(registry.RegSetValueEx(Create("Key\\Below"), "v", kRegSz, text, 1), kErrorSuccess);
  };
  const auto text = [this] { return registry.Text(kHkeyCurrentUser, "Key\\Below", "v").value_or("none"); };
  set("1");
  EXPECT_EQ(registry.CommitWrites(), kErrorInvalidFunction);
  for (const bool committed : {false, true}) {
    RegistryWrites writes(registry);
    EXPECT_EQ(registry.BeginWrites(), kErrorInvalidFunction) << "transactions don't nest";
    set("2");
    EXPECT_EQ(registry.RegDeleteKey(Create("Key"), "Below"), kErrorSuccess);
    if (committed) {
      EXPECT_EQ(writes.Commit(), kErrorSuccess);
    } else {
      registry.CancelWrites();
    }
    EXPECT_EQ(text(), committed ? "none" : "1");
  }
  registry.failures.FailCall(RegistryCall::kCommit, 1, kErrorWriteFault);
  {
    RegistryWrites writes(registry);
    set("3");
    EXPECT_EQ(writes.Commit(), kErrorWriteFault);
  }
  EXPECT_EQ(text(), "none");
  EXPECT_EQ(registry.single_writes, 1);
}

}  // namespace
}  // namespace quorvale
