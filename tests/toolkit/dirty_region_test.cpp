#include "toolkit/dirty_region.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "toolkit/band_form.h"

namespace quorvale {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

struct JoinCase {
  const char* name;
  std::vector<PixelRect> added;
  std::vector<PixelRect> taken;
};

TEST(DirtyRegion, JoinsSimilarRowsAndSmallGaps) {
  const JoinCase cases[] = {
      {"a rectangle is one", {{3, 2, 10, 9}}, {{3, 2, 10, 9}}},
      {"two that touch are one", {{3, 2, 10, 9}, {13, 2, 4, 9}}, {{3, 2, 14, 9}}},
      {"two far apart share their bands", {{0, 0, 2, 4}, {9, 1, 2, 3}}, {{0, 0, 2, 1}, {0, 1, 2, 3}, {9, 1, 2, 3}}},
      {"a gap of a quarter", {{0, 0, 3, 1}, {4, 0, 6, 1}}, {{0, 0, 10, 1}}},
      {"a gap of more", {{0, 0, 3, 1}, {5, 0, 2, 1}}, {{0, 0, 3, 1}, {5, 0, 2, 1}}},
      {"a shift that wastes a fifth", {{0, 0, 4, 1}, {1, 1, 4, 1}}, {{0, 0, 5, 2}}},
      {"a shift that wastes a third", {{0, 0, 2, 1}, {1, 1, 2, 1}}, {{0, 0, 2, 1}, {1, 1, 2, 1}}},
      {"an empty row parts bands", {{0, 0, 4, 2}, {0, 3, 4, 1}}, {{0, 0, 4, 2}, {0, 3, 4, 1}}},
      {"columns that would run together",
       {{0, 0, 10, 1}, {12, 0, 30, 1}, {0, 1, 11, 1}, {20, 1, 22, 1}, {0, 2, 12, 1}, {30, 2, 12, 1}},
       {{0, 0, 42, 2}, {0, 2, 12, 1}, {30, 2, 12, 1}}},
  };
  for (const JoinCase& each : cases) {
    SCOPED_TRACE(each.name);
    DirtyRegion region;
    region.Reset(64, 16);
    for (const PixelRect& rect : each.added) region.Add(rect);
    EXPECT_FALSE(region.IsEmpty());
    EXPECT_THAT(region.Take(), ElementsAreArray(each.taken));
    EXPECT_TRUE(region.IsEmpty());
    EXPECT_THAT(region.Take(), IsEmpty());
  }
}

TEST(DirtyRegion, CoversAllPixelsInAnyOrder) {
  constexpr int width = 40;
  constexpr int height = 12;
  std::mt19937 random(7);
  const auto up_to = [&random](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); };
  DirtyRegion region;
  region.Reset(width, height);
  for (int round = 0; round < 2000; ++round) {
    PixelSet changed(width, height);
    const int longest = 1 + up_to(width - 1);
    for (int count = up_to(60); count >= 0; --count) {
      const int y = up_to(height - 1);
      const int left = up_to(width);
      const int right = std::min(width, left + up_to(longest));
      region.Add(y, left, right);
      for (int x = left; x < right; ++x) changed.Set(x, y);
    }
    ASSERT_THAT(region.Spans(), ElementsAreArray(changed.Spans()));
    ASSERT_EQ(region.IsEmpty(), changed.Spans().empty());
    ExpectBandForm(region.Take(), changed);
    if (testing::Test::HasFailure()) FAIL() << "round " << round;
  }
}

TEST(DirtyRegion, IsEmptyAfterReset) {
  DirtyRegion region;
  EXPECT_TRUE(region.IsEmpty());
  region.Reset(8, 8);
  region.Add({0, 0, 8, 8});
  region.Reset(4, 2);
  EXPECT_TRUE(region.IsEmpty());
  region.Add({0, 0, 4, 2});
  EXPECT_THAT(region.Take(), ElementsAre(PixelRect{0, 0, 4, 2}));
}

}  // namespace
}  // namespace quorvale
