#include "platform/win32/pictures/decoding_time.h"

#include "base/failure.h"
#include "win32/toolkit/platform_fixture.h"

namespace quorvale {
namespace {

using DecodingTimeTest = PlatformFixture;

TEST_F(DecodingTimeTest, EndsForAKeyOfTheShow) {
  Show();
  Settle();
  bool has_run = false;
  EXPECT_TRUE(DecodingTime().Run([&has_run] {
    Sleep(300);
    has_run = true;
  }));
  EXPECT_TRUE(has_run);

  const auto finished = std::make_shared<bool>(false);
  keybd_event(VK_SPACE, 0, 0, 0);
  const ULONGLONG start = GetTickCount64();
  EXPECT_THROW(DecodingTime().Run([finished] {
    Sleep(3000);
    *finished = true;
  }),
               Failure);
  EXPECT_LT(GetTickCount64() - start, 250U);
  // What was left behind ends by itself.
  EXPECT_TRUE(RunUntil([&] { return *finished; }));
  keybd_event(VK_SPACE, 0, KEYEVENTF_KEYUP, 0);
  platform_.PumpEvents();
}

// A thread that ends takes nothing from the next.
TEST(DecodingThreads, RunOneAfterTheOther) {
  int runs = 0;
  for (int i = 0; i < 300; ++i) ASSERT_TRUE(DecodingTime().Run([&runs] { ++runs; })) << i;
  EXPECT_EQ(runs, 300);
}

}  // namespace
}  // namespace quorvale
