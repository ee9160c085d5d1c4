#include "toolkit/dialog_rules.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace quorvale {
namespace {

TEST(LayoutScale, IsLimitedByTheScreen) {
  const std::tuple<double, double, double> cases[] = {{1, 560, 1},   {1.5, 704, 1.5}, {2.25, 748, 1.7},
                                                      {1, 352, 0.8}, {1, 100, 0.6},   {0.9, 2000, 0.9}};
  for (const auto& [wanted, room, scale] : cases) EXPECT_DOUBLE_EQ(LayoutScale(wanted, room, 440), scale) << room;
}

TEST(WithoutMiddle, KeepsBothEnds) {
  const std::string text = "C:\\P\xC3\xA4tze\\deep\\";
  const std::string texts[] = {"\342\200\246",      "\342\200\246\\",     "C\342\200\246\\",     "C\342\200\246p\\",
                               "C:\342\200\246p\\", "C:\342\200\246ep\\", "C:\\\342\200\246ep\\"};
  for (std::size_t room = 1; room <= 7; ++room) {
    EXPECT_EQ(WithoutMiddle(text, [room](const std::string& shown) { return Length(shown) <= room; }), texts[room - 1]);
  }
  EXPECT_EQ(WithoutMiddle(text, [](const std::string& shown) { return Length(shown) <= 14; }), text);
  EXPECT_EQ(WithoutMiddle(text, [](const std::string& shown) { return Length(shown) <= 13; }),
            "C:\\P\xC3\xA4t\xE2\x80\xA6\\deep\\");
}

// Colours are 0xBBGGRR. The ratio of contrast is 4.72 in the first row and 4.69 in the second; the wanted colours of
// the others have 1.60, 2.44, 2.18 and 3.72.
TEST(ReadableColour, GoesOnlyAsFarAsTheBackgroundNeeds) {
  const std::tuple<Colour, Colour, Colour> cases[] = {{0xFF0000, 0xC0C0C0, 0xFF0000}, {0x777777, kBlack, 0x777777},
                                                      {0xFF0000, 0x2D2D2D, 0xFF8F8F}, {0xFF0000, kBlack, 0xFF5F5F},
                                                      {0xFF0000, 0x808080, 0x5F0000}, {0x0000FF, 0x00FFFF, 0x0000DF}};
  for (const auto& [wanted, background, shown] : cases) EXPECT_EQ(ReadableColour(wanted, background), shown);
}

}  // namespace
}  // namespace quorvale
