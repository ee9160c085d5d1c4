#include "playlist/media_collections.h"

#include <gtest/gtest.h>

#include <cmath>

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

TEST(ShuffleTest, MatchesAReferenceShuffle) {
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

}  // namespace
}  // namespace quorvale
