#include "base/numbers.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/failure.h"
#include "base/random.h"
#include "support/failure_of.h"

namespace quorvale {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(NumbersTest, LenientParseTakesTheNumberInFront) {
  const std::pair<double, std::vector<const char*>> cases[] = {
      {0, {"", "abc", "-", ".", "&H", "&HG", "&H00000000&", "&HFFFFFFFFF&", "-&H1&", "1e-400"}},
      {12, {"12", "  12 ", "1 2", "12&", "\t1\n2"}},
      {-7, {"-7x"}},
      {5, {"+5", "5."}},
      {0.5, {".5"}},
      {1.2, {"1.2.3"}},
      {1000, {"1e3", "1 e 3"}},
      {1, {"1e", "1,5"}},
      {100, {"1e+2"}},
      {2.5, {"25e-1"}},
      {255, {"&HFF&", "&hff", "& H F F &1"}},
      {-1, {"&HFFFFFFFF&"}},
      {7, {"07"}},
      {2147483647, {"&H7FFFFFFF&"}},
      {-3, {"- 3"}},
      {kInfinity, {"1e400"}},
      {-kInfinity, {"-1e400"}},
  };
  for (const auto& [value, texts] : cases) {
    for (const char* text : texts) EXPECT_EQ(LenientParse(text), value) << '"' << text << '"';
  }
}

// A fraction of four hundred digits was taken for a huge number.
TEST(NumbersTest, TooSmallIsZeroAndTooLargeIsInfinite) {
  const std::string zeros(400, '0');
  EXPECT_EQ(LenientParse("0." + zeros + "1"), 0);
  EXPECT_EQ(LenientParse("." + zeros + "1"), 0);
  EXPECT_EQ(LenientParse("1" + zeros), kInfinity);
  EXPECT_EQ(LenientParse("-1" + zeros + ".5"), -kInfinity);
}

TEST(NumbersTest, AStrictNumberRejectsTrailingText) {
  const std::pair<const char*, double> cases[] = {
      {"12", 12}, {" 12 ", 12}, {"-1.5", -1.5}, {"&HFF&", 255}, {"1e2", 100}};
  for (const auto& [text, value] : cases) {
    EXPECT_EQ(StrictNumber(text), value) << '"' << text << '"';
  }
  for (const char* text : {"", " ", "two", "12x", "1 2", "&HFFx", "--1", "1e"}) {
    EXPECT_EQ(FailureOf([&] { StrictNumber(text); }), FailureNumber::kNotANumber) << '"' << text << '"';
  }
}

TEST(NumbersTest, RoundingIsToTheNearestAndTiesToEven) {
  const std::pair<double, int> cases[] = {{0.5, 0},   {1.5, 2},    {2.5, 2},         {-0.5, 0},
                                          {-1.5, -2}, {2.4999, 2}, {32767.4, 32767}, {-32768.5, -32768}};
  for (const auto& [value, rounded] : cases) {
    EXPECT_EQ(RoundToInt16(value), rounded) << value;
    EXPECT_EQ(RoundToInt32(value), rounded) << value;
  }
  EXPECT_EQ(RoundToInt32(2147483647.4), 2147483647);
  EXPECT_EQ(RoundToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
  for (const double value : {32767.5, -32768.6, 1e300}) {
    EXPECT_EQ(FailureOf([&] { RoundToInt16(value); }), FailureNumber::kOverflow) << value;
  }
  for (const double value : {2147483647.5, -2147483648.6, kInfinity, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(FailureOf([&] { RoundToInt32(value); }), FailureNumber::kOverflow) << value;
  }
}

TEST(NumbersTest, ASwitchIsOnAtExactlyOne) {
  for (const char* text : {"1", " 1", "1.0", "1x", "&H1&"}) EXPECT_TRUE(IsOn(text)) << text;
  for (const char* text : {"", "0", "2", "1.5", "-1", "yes"}) EXPECT_FALSE(IsOn(text)) << text;
}

TEST(RandomTest, TheSameSeedGivesTheSameNumbersBelowOne) {
  Random one;
  Random other;
  one.Seed(7);
  other.Seed(7);
  for (int i = 0; i < 1000; ++i) {
    const float number = one.Next();
    EXPECT_EQ(number, other.Next());
    EXPECT_TRUE(number >= 0 && number < 1);
  }
}

}  // namespace
}  // namespace quorvale
