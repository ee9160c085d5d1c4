#include "playlist/play_list_file.h"

#include "base/failure.h"
#include "base/strings.h"
#include "base/text.h"
#include "system/file_system.h"

namespace quorvale {
namespace {

constexpr char kLineEnd[] = "\r\n";
// Some editors begin UTF-8 files with it.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

void AddLines(std::string& text, const std::string& mark, const ListBox& list) {
  for (int i = 0; i < list.ListCount(); ++i) text += mark + list.List(i) + kLineEnd;
}

}  // namespace

std::string PlayListText(const ListBox& pictures, const ListBox& sounds) {
  std::string text;
  AddLines(text, "P:", pictures);
  AddLines(text, "S:", sounds);
  return text;
}

// Encoding is decided per line: one name that is not UTF-8 must not spoil the others.
void AppendPlayListText(std::string_view text, FileSystem& files, ListBox& pictures, ListBox& sounds) {
  const bool is_too_long = text.size() > kMostPlayListBytes;
  if (is_too_long) text = text.substr(0, text.find_last_of(kLineEnd) + 1);
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  while (!text.empty()) {
    std::string_view line = CutLine(text);
    line = line.substr(0, line.find_last_not_of(kLineEnd) + 1);
    ListBox& list = line.starts_with('P') ? pictures : sounds;
    list.AddItem(IsUtf8(line) ? Mid(line, 3) : Mid(files.FromOlderCodePage(std::string(line)), 3));
  }
  if (is_too_long) throw Failure(FailureNumber::kListFull, strings::failures::kListIsFull, "AppendPlayListText");
}

}  // namespace quorvale
