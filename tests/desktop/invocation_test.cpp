#include "platform/desktop/system/invocation.h"

#include <gtest/gtest.h>

#include <optional>

namespace quorvale {
namespace {

TEST(ReadInvocation, KnowsHowDaemonsCall) {
  const std::tuple<std::vector<std::string>, const char*, std::string, std::optional<std::uint32_t>> cases[] = {
      {{}, nullptr, "", {}},
      {{"/S"}, "0x10", "/S", {}},
      {{"/INSTALL", "a", "--root"}, "0x10", "/INSTALL a --root", {}},
      {{"--root"}, "0x1A0000F", "/S", 0x1A0000FU},
      {{"--root"}, "27262991", "/S", 27262991U},
      {{"--root"}, nullptr, "/S", 0U},
      {{"--root"}, "0x", "/S", 0U},
      {{"--root"}, "12x", "/S", 0U},
      {{"--root"}, "0x123456789", "/S", 0U},
      {{"--root", "--window-id", "0xFF"}, "0x10", "/P 255", {}},
      {{"--window-id", "0100"}, nullptr, "/P 100", {}},
      {{"--window-id"}, nullptr, "/P 0", {}},
      {{"--window-id", "-1"}, nullptr, "/P 0", {}},
  };
  for (const auto& [arguments, daemon_window, text, in_window] : cases) {
    const Invocation invocation = ReadInvocation(arguments, daemon_window);
    SCOPED_TRACE(text);
    EXPECT_EQ(invocation.text, text);
    EXPECT_EQ(invocation.daemon_window, in_window);
    EXPECT_FALSE(invocation.is_unknown);
  }
  EXPECT_TRUE(ReadInvocation({"-root"}, nullptr).is_unknown);
  EXPECT_FALSE(ReadInvocation({"--quiet", "/INSTALL", "a/"}, nullptr).is_unknown);
}

}  // namespace
}  // namespace quorvale
