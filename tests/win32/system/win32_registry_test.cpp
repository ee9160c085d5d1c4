#include "platform/win32/system/win32_registry.h"

#include "support/registry_rules.h"

namespace quorvale {

INSTANTIATE_TEST_SUITE_P(Win32, RegistryRules, testing::Values([] { return std::make_unique<Win32Registry>(); }));

}  // namespace quorvale
