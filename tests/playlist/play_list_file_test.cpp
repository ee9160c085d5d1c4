#include "playlist/play_list_file.h"

#include "playlist/list_entry.h"
#include "support/headless_fixture.h"
#include "toolkit/list_box.h"
#include "toolkit/scripted_form.h"

namespace quorvale {
namespace {

class PlayListFileTest : public HeadlessTest {
 protected:
  // Both lists, each item with "|" behind it, divided by "/".
  std::string Read(const std::string& text) {
    pictures.Clear();
    sounds.Clear();
    AppendPlayListText(text, desktop.files, pictures, sounds);
    std::string items;
    for (int i = 0; i < pictures.ListCount(); ++i) items += pictures.List(i) + "|";
    items += "/";
    for (int i = 0; i < sounds.ListCount(); ++i) items += sounds.List(i) + "|";
    return items;
  }

  Application app{desktop};
  ScriptedForm form{app};
  ListBox pictures{form, {.name = "Pictures"}};
  ListBox sounds{form, {.name = "Sounds"}};
};

TEST_F(PlayListFileTest, ALineHasItsColumnsAndIsWrittenPicturesFirst) {
  EXPECT_EQ(PlayListText(pictures, sounds), "");
  sounds.AddItem(MakeListEntry("s.wav", "D:\\"));
  pictures.AddItem(MakeListEntry("sea.jpg", "C:\\Pics\\"));
  pictures.AddItem(" short ");
  const std::string text = PlayListText(pictures, sounds);
  EXPECT_EQ(text, "P:sea.jpg" + std::string(248, ' ') + "C:\\Pics\\" + std::string(249, ' ') +
                      "\r\nP: short \r\nS:" + sounds.List(0) + "\r\n");
  EXPECT_EQ(text.size(), 516U + 11 + 516);
  const std::string entry = pictures.List(0);
  EXPECT_EQ(Read(text), entry + "| short |/" + sounds.List(0) + "|");
}

TEST_F(PlayListFileTest, EveryLineIsAnItemWhateverItHolds) {
  const std::string nul(1, '\0');
  const struct {
    std::string text;
    std::string items;
  } cases[] = {
      {"", "/"},
      {"P:a\r\nS:b", "a|/b|"},
      {"P:a\nS:b\n", "a|/b|"},
      {"P:a\rP:b\r\n\r\n", "a|b|/|"},
      {"p:a\r\nPxb\r\nP\r\n\r\nx\r\nS", "b||/a||||"},
      {"P:\xC3\xA9\r\nP:\xE9\r\n\xE9:x\r\n", "\xC3\xA9|\xC3\xA9|/x|"},
      {"\xEF\xBB\xBFP:a\r\n", "a|/"},
      {nul + ":a" + nul + "\r\nP:" + nul, nul + "|/a" + nul + "|"},
      {"P:" + std::string(5'000'000, 'x'), std::string(5'000'000, 'x') + "|/"},
  };
  for (const auto& c : cases) EXPECT_TRUE(Read(c.text) == c.items) << c.text.substr(0, 40);
}

TEST_F(PlayListFileTest, AFullListKeepsWhatCameBefore) {
  std::string text;
  for (int i = 0; i <= ListBox::kMostItems; ++i) text += "P:\n";
  EXPECT_EQ(FailureOf([&] { Read(text + "S:late"); }), FailureNumber::kListFull);
  EXPECT_EQ(pictures.ListCount(), ListBox::kMostItems);
  EXPECT_EQ(sounds.ListCount(), 0);
}

TEST_F(PlayListFileTest, ATextLongerThanTwoFullListsIsReadToItsLastWholeLine) {
  std::string text = "P:a\nS:b\n" + std::string(kMostPlayListBytes - 9, 'x');
  Read(text);
  EXPECT_EQ(sounds.ListCount(), 2);
  EXPECT_EQ(FailureOf([&] { Read(text + "xx"); }), FailureNumber::kListFull);
  EXPECT_EQ(pictures.ListCount() + sounds.ListCount(), 2);
}

}  // namespace
}  // namespace quorvale
