#include "platform/headless/memory_registry.h"

#include "support/registry_rules.h"

namespace quorvale {
namespace {

INSTANTIATE_TEST_SUITE_P(Memory, RegistryRules, testing::Values([] { return std::make_unique<MemoryRegistry>(); }));

class MemoryRegistryTest : public ::testing::Test {
 protected:
  RegistryKey Create(const std::string& path) {
    RegistryKey key = 0;
    EXPECT_EQ(registry.RegCreateKeyEx(kHkeyCurrentUser, path, kKeyAllAccess, key), kErrorSuccess);
    return key;
  }

  MemoryRegistry registry;
};

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
