#include "base/text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quorvale {
namespace {

TEST(TextTest, ColumnsAreCharactersAndMalformedBytesCountOneEach) {
  struct Case {
    std::string text;
    std::size_t length;
    std::string left2;
    std::string mid3;
  };
  const std::vector<Case> cases = {
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
  for (const Case& c : cases) {
    EXPECT_EQ(Length(c.text), c.length) << c.text;
    EXPECT_EQ(Left(c.text, 2), c.left2) << c.text;
    EXPECT_EQ(Mid(c.text, 3), c.mid3) << c.text;
    EXPECT_EQ(Left(c.text, 1) + Mid(c.text, 2), c.text);
  }
}

TEST(TextTest, TrimTakesSpacesAndNothingElse) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("\ta "), "\ta");
  EXPECT_EQ(Trim("   "), "");
}

TEST(TextTest, AnOverlayNeverChangesTheNumberOfCharacters) {
  struct Case {
    std::size_t column;
    std::string piece;
    std::string result;
  };
  for (const Case& c : {Case{1, "abc", "abc..."},
                        {4, "abc", "...abc"},
                        {5, "abc", "....ab"},
                        {7, "abc", "......"},
                        {2, "\xC3\xA9\xC3\xA9", ".\xC3\xA9\xC3\xA9..."},
                        {1, "", "......"}}) {
    std::string text(6, '.');
    Overlay(text, c.column, c.piece);
    EXPECT_EQ(text, c.result);
  }
}

TEST(TextTest, CutTokenCutsTextAndDelimiterOff) {
  struct Case {
    std::string text;
    std::string token;
    std::string rest;
  };
  for (const Case& c : {Case{"a;b", "a", "b"}, {"a;", "a", ""}, {";b", "", "b"}, {"ab", "ab", ""}, {"", "", ""}}) {
    std::string text = c.text;
    EXPECT_EQ(CutToken(text, ';'), c.token) << c.text;
    EXPECT_EQ(text, c.rest) << c.text;
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
