#include "config/entry_adder.h"

#include <algorithm>

#include "base/text.h"
#include "playlist/list_entry.h"
#include "toolkit/application.h"
#include "toolkit/list_box.h"

namespace quorvale {
namespace {

// The most characters of an entry that are read back as its name and as its directory.
constexpr std::size_t kMostNameCharacters = 254;
constexpr std::size_t kMostDirectoryCharacters = kListEntryColumns - kListEntryDirectoryColumn + 1;

constexpr std::size_t kMostNamesShown = 10;
constexpr std::size_t kMostCharactersShown = 100;

// The reason why this entry would give another path; empty if it gives this one.
std::string ReasonAgainst(const std::string& name, const std::string& directory, const std::string& path,
                          const std::string& entry, const PathSyntax& syntax) {
  if (path.find_first_of("\r\n") != std::string::npos) return "it has a line end in it";
  if (Length(name) > kMostNameCharacters) {
    return "it is longer than " + std::to_string(kMostNameCharacters) + " characters";
  }
  if (Length(directory) > kMostDirectoryCharacters) {
    return "its directory is longer than " + std::to_string(kMostDirectoryCharacters) + " characters";
  }
  if (Trim(name) != name || Trim(directory) != directory) {
    return "a play list can't hold a blank at the start or the end of a name";
  }
  if (EntryPath(entry, syntax) != path) return "a play list can't hold a separator at the end of a file's name";
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

void EntryAdder::AddFile(const std::string& name, const std::string& directory) {
  Add(name, directory, directory + name);
}

void EntryAdder::AddDirectory(const std::string& directory) { Add(directory, directory, directory); }

void EntryAdder::Add(const std::string& name, const std::string& directory, const std::string& path) {
  std::string entry = MakeListEntry(name, directory);
  std::string reason = ReasonAgainst(name, directory, path, entry, syntax_);
  if (reason.empty() && list_.ListCount() >= ListBox::kMostItems) reason = "the list is full";
  if (!reason.empty()) {
    left_out_.push_back({name, std::move(reason)});
    return;
  }
  list_.AddItem(std::move(entry));
  ++added_;
}

void EntryAdder::TellLeftOut(Application& app) const {
  if (left_out_.empty()) return;
  std::string text = "Not added to the Play List:\n";
  const std::size_t shown = std::min(left_out_.size(), kMostNamesShown);
  for (std::size_t i = 0; i < shown; ++i) text += "\n" + Shown(left_out_[i].name) + ": " + left_out_[i].reason + ".";
  if (shown < left_out_.size()) text += "\n... and " + std::to_string(left_out_.size() - shown) + " more.";
  app.ShowMessageBox({.text = text, .icon = MessageBoxIcon::kExclamation});
}

}  // namespace quorvale
