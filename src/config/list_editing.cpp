#include "config/list_editing.h"

#include "playlist/token.h"
#include "process/collection.h"
#include "toolkit/common_dialog.h"
#include "toolkit/list_box.h"

namespace quorvale {

void ParseFileSelection(const CommonDialog& dialog, const PathSyntax& syntax, Collection& names,
                        std::string& directory) {
  const std::string& chosen = dialog.FileName;
  if (chosen.find('\0') == std::string::npos) {
    const std::size_t name = NameStart(chosen, syntax);
    names.Add(chosen.substr(name));
    directory = chosen.substr(0, name);
    return;
  }
  std::string rest = chosen + std::string(2, '\0');
  directory = CutToken(rest, '\0') + syntax.separator;
  for (std::string name = CutToken(rest, '\0'); !name.empty(); name = CutToken(rest, '\0')) {
    names.Add(std::move(name));
  }
}

std::size_t NameStart(const std::string& path, const PathSyntax& syntax) {
  std::size_t start = path.size();
  while (start > 0 && !syntax.IsSeparator(path[start - 1])) --start;
  return start;
}

int FirstSelected(const ListBox& list) {
  for (int i = 0; i < list.ListCount(); ++i) {
    if (list.Selected(i)) return i;
  }
  return 0;
}

void RemoveSelected(ListBox& list) {
  for (int i = list.ListCount() - 1; i >= 0; --i) {
    if (list.Selected(i)) list.RemoveItem(i);
  }
  if (list.ListCount() > 0) list.SetSelected(0, true);
}

void MoveSelected(ListBox& list, int step) {
  const int i = FirstSelected(list);
  const std::string kept = list.List(i + step);
  list.SetList(i + step, list.List(i));
  list.SetList(i, kept);
  list.SetSelected(i, false);
  list.SetSelected(i + step, true);
}

}  // namespace quorvale
