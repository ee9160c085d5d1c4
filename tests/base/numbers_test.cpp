#include "base/numbers.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "base/random.h"
#include "support/failure_of.h"

namespace quorvale {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(NumbersTest, LenientParseTakesTheNumberInFront) {
  const std::vector<std::pair<const char*, double>> cases = {{"", 0},
                                                             {"abc", 0},
                                                             {"12", 12},
                                                             {"  12 ", 12},
                                                             {"1 2", 12},
                                                             {"-7x", -7},
                                                             {"+5", 5},
                                                             {".5", 0.5},
                                                             {"5.", 5},
                                                             {"1.2.3", 1.2},
                                                             {"1e3", 1000},
                                                             {"1e", 1},
                                                             {"1e+2", 100},
                                                             {"25e-1", 2.5},
                                                             {"-", 0},
                                                             {".", 0},
                                                             {"&HFF&", 255},
                                                             {"&hff", 255},
                                                             {"&H00000000&", 0},
                                                             {"&HFFFFFFFF&", -1},
                                                             {"&H", 0},
                                                             {"&HG", 0},
                                                             {"12&", 12},
                                                             {"07", 7},
                                                             {"\t1\n2", 12},
                                                             {"1 e 3", 1000},
                                                             {"& H F F &1", 255},
                                                             {"&H7FFFFFFF&", 2147483647},
                                                             {"&HFFFFFFFFF&", 0},
                                                             {"-&H1&", 0},
                                                             {"1,5", 1},
                                                             {"- 3", -3},
                                                             {"1e-400", 0},
                                                             {"1e400", kInfinity},
                                                             {"-1e400", -kInfinity}};
  for (const auto& [text, value] : cases) EXPECT_EQ(LenientParse(text), value) << '"' << text << '"';
}

// A fraction of four hundred digits was taken for a huge number.
TEST(NumbersTest, WhatIsTooSmallForADoubleIsZeroAndWhatIsTooLargeInfinite) {
  const std::string zeros(400, '0');
  EXPECT_EQ(LenientParse("0." + zeros + "1"), 0);
  EXPECT_EQ(LenientParse("." + zeros + "1"), 0);
  EXPECT_EQ(LenientParse("1" + zeros), kInfinity);
  EXPECT_EQ(LenientParse("-1" + zeros + ".5"), -kInfinity);
}

TEST(NumbersTest, StrictNumberTakesNothingElse) {
  for (const auto& [text, value] : std::vector<std::pair<const char*, double>>{
           {"12", 12}, {" 12 ", 12}, {"-1.5", -1.5}, {"&HFF&", 255}, {"1e2", 100}}) {
    EXPECT_EQ(StrictNumber(text), value) << '"' << text << '"';
  }
  for (const char* text : {"", " ", "two", "12x", "1 2", "&HFFx", "--1", "1e"}) {
    EXPECT_EQ(FailureOf([&] { StrictNumber(text); }), FailureNumber::kNotANumber) << '"' << text << '"';
  }
}

TEST(NumbersTest, RoundingIsToTheNearestAndTiesToEven) {
  for (const auto& [value, rounded] : std::vector<std::pair<double, int>>{
           {0.5, 0}, {1.5, 2}, {2.5, 2}, {-0.5, 0}, {-1.5, -2}, {2.4999, 2}, {32767.4, 32767}, {-32768.5, -32768}}) {
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
