#include "playlist/shuffle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "base/random.h"

namespace quorvale {
namespace {

Collection Numbers(int count) {
  Collection numbers;
  for (int i = 1; i <= count; ++i) numbers.Add(std::to_string(i));
  return numbers;
}

// The draw as one would do it by hand: remove the drawn entry from the list.
std::vector<std::string> ByHand(std::vector<std::string> source, Random& random) {
  std::vector<std::string> drawn;
  while (!source.empty()) {
    const double draw = static_cast<double>(random.Next()) * static_cast<double>(source.size() - 1) + 1;
    const auto index = static_cast<std::ptrdiff_t>(std::nearbyint(draw)) - 1;
    drawn.push_back(source[static_cast<std::size_t>(index)]);
    source.erase(source.begin() + index);
  }
  return drawn;
}

TEST(ShuffleTest, DrawsWhatADrawByHandDraws) {
  for (const int count : {0, 1, 2, 3, 4, 7, 8, 9, 100, 1000}) {
    for (std::uint64_t seed = 0; seed < 20; ++seed) {
      Random random;
      Random same;
      random.Seed(seed);
      same.Seed(seed);
      Collection collection = Numbers(count);
      ShuffleCollection(collection, random);
      EXPECT_EQ(collection.TakeItems(), ByHand(Numbers(count).TakeItems(), same)) << count << " " << seed;
    }
  }
}

// With two left the middle of the range is a tie, and goes to the even position.
TEST(ShuffleTest, ATieGoesToTheEvenPosition) {
  std::map<std::string, int> drawn;
  for (std::uint64_t seed = 0; seed < 4000; ++seed) {
    Random random;
    Random same;
    random.Seed(seed);
    same.Seed(seed);
    Collection collection = Numbers(2);
    ShuffleCollection(collection, random);
    EXPECT_EQ(collection.Item(1) == "2", same.Next() > 0.5F) << seed;
    ++drawn[collection.Item(1)];
  }
  EXPECT_NEAR(drawn["1"], 2000, 150);
}

TEST(ShuffleTest, TheEndsComeFirstHalfAsOftenAsTheRest) {
  Random random;
  std::map<std::string, int> first;
  constexpr int kRounds = 20'000;
  for (int i = 0; i < kRounds; ++i) {
    Collection collection = Numbers(5);
    ShuffleCollection(collection, random);
    ++first[collection.Item(1)];
  }
  for (const char* end : {"1", "5"}) EXPECT_NEAR(first[end], kRounds / 8, 250) << end;
  for (const char* inner : {"2", "3", "4"}) EXPECT_NEAR(first[inner], kRounds / 4, 300) << inner;
}

}  // namespace
}  // namespace quorvale
