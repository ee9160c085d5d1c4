#include "platform/common/pacing.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <tuple>

namespace quorvale {
namespace {

using namespace std::chrono_literals;
using std::chrono::nanoseconds;

TEST(PaceAccount, AddsUpShortPassesAndGivesNoCredit) {
  const std::tuple<const char*, std::function<void(PaceAccount&)>, nanoseconds> cases[] = {
      {"too little to wait for", [](auto& a) { a.AddPass(999us, 0us); }, 0us},
      {"many passes",
       [](auto& a) {
         for (int i = 0; i < 50; ++i) a.AddPass(25us, 5us);
       },
       1ms},
      {"a slow pass before", [](auto& a) { a.AddPass(1ms, 1s), a.AddPass(2ms, 0ms); }, 2ms},
      {"a wait that an event cut short", [](auto& a) { a.AddPass(5ms, 0ms), a.Waited(2ms); }, 3ms},
      {"a timer that came late", [](auto& a) { a.AddPass(1ms, 0ms), a.Waited(1400us), a.AddPass(2ms, 0ms); }, 1600us},
      {"a handler that took long in a wait", [](auto& a) { a.AddPass(1ms, 0ms), a.Waited(9s), a.AddPass(3ms, 0ms); },
       2ms},
      {"forgotten", [](auto& a) { a.AddPass(1s, 0ms), a.Forget(); }, 0us},
  };
  for (const auto& [what, course, due] : cases) {
    PaceAccount account;
    course(account);
    EXPECT_EQ(account.Due(), due) << what;
  }
}

}  // namespace
}  // namespace quorvale
