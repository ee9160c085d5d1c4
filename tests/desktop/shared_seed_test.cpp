#include "platform/desktop/system/shared_seed.h"

#include <gmock/gmock.h>

#include <memory>
#include <thread>
#include <vector>

#include "desktop/temporary_directory.h"

namespace quorvale {
namespace {

TEST(SharedSeedTest, LastsAsLongAsAnyProcessThatHasIt) {
  const TemporaryDirectory directory;
  auto first = std::make_unique<SharedSeed>(directory.Path());
  EXPECT_EQ(first->Join(1), 1U);
  auto second = std::make_unique<SharedSeed>(directory.Path());
  EXPECT_EQ(second->Join(3), 1U);
  first.reset();
  EXPECT_EQ(SharedSeed(directory.Path()).Join(4), 1U) << "started again while another runs";
  second.reset();
  EXPECT_EQ(SharedSeed(directory.Path()).Join(5), 5U);
  for (const std::string& none : {std::string(), directory.Path("missing")}) EXPECT_FALSE(SharedSeed(none).Join(6));
}

TEST(SharedSeedTest, ThoseThatStartAtOnceAgree) {
  const TemporaryDirectory directory;
  for (int round = 0; round < 50; ++round) {
    std::vector<SharedSeed> processes;
    for (int i = 0; i < 4; ++i) processes.emplace_back(directory.Path());
    std::vector<std::optional<std::uint64_t>> seeds(processes.size());
    std::vector<std::thread> starts;
    for (std::size_t i = 0; i < seeds.size(); ++i) starts.emplace_back([&, i] { seeds[i] = processes[i].Join(i + 1); });
    for (std::thread& start : starts) start.join();
    EXPECT_THAT(seeds, testing::Each(seeds[0]));
  }
}

}  // namespace
}  // namespace quorvale
