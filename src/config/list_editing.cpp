#include "config/list_editing.h"

#include <algorithm>

#include "base/strings.h"
#include "base/text.h"
#include "playlist/list_entry.h"
#include "process/show_state.h"
#include "toolkit/application.h"
#include "toolkit/dialogs.h"
#include "toolkit/list_box.h"

namespace quorvale {
namespace {

namespace adding_texts = strings::adding;

// The most characters of an entry that are read back as its name and as its directory.
constexpr std::size_t kMostNameCharacters = 254;
constexpr std::size_t kMostDirectoryCharacters = kListEntryColumns - kListEntryDirectoryColumn + 1;

constexpr std::size_t kMostNamesShown = 10;
constexpr std::size_t kMostCharactersShown = 100;

// The reason why this entry would give another path; empty if it gives this one.
std::string ReasonAgainst(const std::string& name, const std::string& directory, const std::string& path,
                          const std::string& entry, const PathSyntax& syntax) {
  if (path.find_first_of("\r\n") != std::string::npos) return adding_texts::kHasLineEnd;
  if (Length(name) > kMostNameCharacters) {
    return strings::Fill(adding_texts::kNameTooLong, {std::to_string(kMostNameCharacters)});
  }
  if (Length(directory) > kMostDirectoryCharacters) {
    return strings::Fill(adding_texts::kDirectoryTooLong, {std::to_string(kMostDirectoryCharacters)});
  }
  if (Trim(name) != name || Trim(directory) != directory) {
    return adding_texts::kHasOuterBlank;
  }
  if (EntryPath(entry, syntax) != path) return adding_texts::kEndsInSeparator;
  return {};
}

std::string Shown(const std::string& name) {
  std::string text = Left(name, kMostCharactersShown);
  const bool is_cut = text.size() < name.size();
  std::replace_if(
      text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, '?');
  return is_cut ? text + "..." : text;
}

}  // namespace

void ParseFileSelection(const CommonDialog& dialog, const PathSyntax& syntax, Collection& names,
                        std::string& directory) {
  const std::string& chosen = dialog.file_name;
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

void EntryAdder::AddFile(const std::string& name, const std::string& directory) {
  Add(name, directory, directory + name);
}

void EntryAdder::AddDirectory(const std::string& directory) { Add(directory, directory, directory); }

void EntryAdder::Add(const std::string& name, const std::string& directory, const std::string& path) {
  std::string entry = MakeListEntry(name, directory);
  std::string reason = ReasonAgainst(name, directory, path, entry, syntax_);
  if (reason.empty() && list_.ListCount() >= ListBox::kMostItems) reason = adding_texts::kListIsFull;
  if (!reason.empty()) {
    left_out_.push_back({name, std::move(reason)});
    return;
  }
  list_.AddItem(std::move(entry));
  ++added_;
}

void EntryAdder::ReportLeftOut(Application& app) const {
  if (left_out_.empty()) return;
  std::string text = adding_texts::kNotAdded;
  const std::size_t shown = std::min(left_out_.size(), kMostNamesShown);
  for (std::size_t i = 0; i < shown; ++i) {
    text += strings::Fill(adding_texts::kNotAddedName, {Shown(left_out_[i].name), left_out_[i].reason});
  }
  if (shown < left_out_.size()) {
    text += strings::Fill(adding_texts::kMoreNotAdded, {std::to_string(left_out_.size() - shown)});
  }
  app.ShowMessageBox({.text = text, .icon = MessageBoxIcon::kExclamation});
}

}  // namespace quorvale
