#include "base/text.h"

#include <gtest/gtest.h>

namespace quorvale {
namespace {

TEST(TextTest, ColumnsAreCharactersAndMalformedBytesCountOneEach) {
  const std::tuple<std::string, std::size_t, std::string, std::string> cases[] = {
      {"abcd", 4, "ab", "cd"},
      {"a", 1, "a", ""},
      {"\xC3\xA9t\xC3\xA9", 3, "\xC3\xA9t", "\xC3\xA9"},
      {"\xE2\x82\xAC\xF0\x9F\x98\x80x", 3, "\xE2\x82\xAC\xF0\x9F\x98\x80", "x"},
      {"\xFF\xFE"
       "a",
       3, "\xFF\xFE", "a"},
      {"\xC3(x", 3, "\xC3(", "x"},              // a lead byte without its second
      {"\xC0\x80x", 3, "\xC0\x80", "x"},        // an overlong form
      {"\xED\xA0\x80", 3, "\xED\xA0", "\x80"},  // a surrogate
      {"\xE2\x82", 2, "\xE2\x82", ""},          // cut off
  };
  for (const auto& [text, length, left2, mid3] : cases) {
    EXPECT_EQ(Length(text), length) << text;
    EXPECT_EQ(Left(text, 2), left2) << text;
    EXPECT_EQ(Mid(text, 3), mid3) << text;
    EXPECT_EQ(Left(text, 1) + Mid(text, 2), text);
  }
}

TEST(TextTest, TrimTakesSpacesAndNothingElse) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("\ta "), "\ta");
  EXPECT_EQ(Trim("   "), "");
}

TEST(TextTest, AnOverlayNeverChangesTheNumberOfCharacters) {
  const std::tuple<std::size_t, std::string, std::string> cases[] = {{1, "abc", "abc..."},
                                                                     {4, "abc", "...abc"},
                                                                     {5, "abc", "....ab"},
                                                                     {7, "abc", "......"},
                                                                     {2, "\xC3\xA9\xC3\xA9", ".\xC3\xA9\xC3\xA9..."},
                                                                     {1, "", "......"}};
  for (const auto& [column, piece, result] : cases) {
    std::string text(6, '.');
    Overlay(text, column, piece);
    EXPECT_EQ(text, result);
  }
}

TEST(TextTest, CutTokenCutsTextAndDelimiterOff) {
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"a;b", "a", "b"}, {"a;", "a", ""}, {";b", "", "b"}, {"ab", "ab", ""}, {"", "", ""}};
  for (const auto& [from, token, rest] : cases) {
    std::string text = from;
    EXPECT_EQ(CutToken(text, ';'), token) << from;
    EXPECT_EQ(text, rest) << from;
  }
  std::string from_system("C:\\WINDOWS\0junk\0", 16);
  EXPECT_EQ(CutToken(from_system, '\0'), "C:\\WINDOWS");
  EXPECT_EQ(from_system, std::string("junk\0", 5));
}

TEST(TextTest, LinesEndInEitherCharacterOrBoth) {
  std::string_view text = "a\r\n\nb\r\rc";
  std::vector<std::string> lines;
  while (!text.empty()) lines.emplace_back(CutLine(text));
  EXPECT_EQ(lines, (std::vector<std::string>{"a\r\n", "\n", "b\r", "\r", "c"}));
}

TEST(TextTest, CaseIsThatOfAsciiLetters) {
  EXPECT_EQ(UpperCase("/s\xC3\xA9"), "/S\xC3\xA9");
  EXPECT_TRUE(EqualsIgnoringCase("BackColor", "Backcolor"));
  EXPECT_FALSE(EqualsIgnoringCase("Back", "Backcolor"));
}

}  // namespace
}  // namespace quorvale
