#include "platform/desktop/pictures/iso_boxes.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "desktop/pictures/samples.h"

namespace quorvale {
namespace {

std::string Number(std::size_t number, int bytes) {
  std::string text;
  for (int i = bytes - 1; i >= 0; --i) text += static_cast<char>(number >> (8 * i));
  return text;
}

std::string Box(const std::string& type, const std::string& content) {
  return Number(8 + content.size(), 4) + type + content;
}

struct References {
  std::string type;
  unsigned from = 0;
  std::vector<unsigned> to;
};

// Item numbers have 2 bytes, or 4.
std::string Meta(const std::vector<References>& lists, int width = 2) {
  std::string content = Number(width == 2 ? 0 : 0x01000000, 4);
  for (const References& list : lists) {
    std::string numbers = Number(list.from, width) + Number(list.to.size(), 2);
    for (const unsigned to : list.to) numbers += Number(to, width);
    content += Box(list.type, numbers);
  }
  return Box("meta", Number(0, 4) + Box("iref", content));
}

std::string Chain(unsigned references) {
  std::vector<References> lists;
  for (unsigned i = 1; i <= references; ++i) lists.push_back({"dimg", i, {i + 1}});
  return Meta(lists);
}

TEST(IsoBoxes, FindPicturesThatAreMadeOfTooManyOthers) {
  const std::string circle = Meta({{"dimg", 1, {1}}});
  const std::tuple<const char*, std::string, bool> cases[] = {
      {"nothing", {}, false},
      {"tiles", Meta({{"dimg", 9, {1, 2, 3, 4, 5, 6}}, {"thmb", 8, {9}}, {"cdsc", 7, {9}}}), false},
      {"tiles of colour and of alpha", Meta({{"dimg", 9, {1, 2}}, {"dimg", 8, {3, 4}}, {"auxl", 8, {9}}}), false},
      {"four levels", Chain(4), false},
      {"five levels", Chain(5), true},
      {"itself", circle, true},
      {"itself among tiles", Meta({{"dimg", 2, {1, 3, 2}}}), true},
      {"each other", Meta({{"dimg", 1, {2}}, {"dimg", 2, {3, 1}}}, 4), true},
      {"its own alpha's tiles", Meta({{"auxl", 2, {1}}, {"dimg", 2, {1}}}), true},
      {"the thumbnail of itself", Meta({{"thmb", 1, {1}}}), false},
      {"in a second box", Chain(1) + circle, true},
      {"cut off", circle.substr(0, circle.size() - 3), false},
  };
  for (const auto& [what, file, is_too_deep] : cases) {
    EXPECT_EQ(NestsTooDeep(Bytes(file.begin(), file.end())), is_too_deep) << what;
  }
}

}  // namespace
}  // namespace quorvale
