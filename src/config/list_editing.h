#pragma once

#include <string>
#include <vector>

#include "base/paths.h"

namespace quorvale {

class Application;
class Collection;
class CommonDialog;
class ListBox;

// Splits the result of a file dialog into `names` and their directory, which ends in a separator. For multiple files a
// separator is always added, so a root directory ends in two.
void ParseFileSelection(const CommonDialog& dialog, const PathSyntax& syntax, Collection& names,
                        std::string& directory);

// The position of the first selected item; also 0 if none is selected.
int FirstSelected(const ListBox& list);

// Removes the selected items and selects the first of those that remain.
void RemoveSelected(ListBox& list);

// Swaps the first selected item with the one `step` positions further on; the selection follows. Fails with
// kNoSuchEntry if there is no such item.
void MoveSelected(ListBox& list, int step);

// Appends entries to a list box. Leaves out names that would come back changed from an entry or from a line of a play
// list file, and everything after the list is full.
class EntryAdder {
 public:
  EntryAdder(ListBox& list, PathSyntax syntax) : list_(list), syntax_(syntax) {}

  void AddFile(const std::string& name, const std::string& directory);
  // `directory` ends in a separator.
  void AddDirectory(const std::string& directory);
  // The number of entries added.
  int Added() const { return added_; }

  // Shows one box with the names that were left out and the reasons. Does nothing if there are none.
  void ReportLeftOut(Application& app) const;

 private:
  struct LeftOut {
    std::string name;
    std::string reason;
  };

  void Add(const std::string& name, const std::string& directory, const std::string& path);

  ListBox& list_;
  PathSyntax syntax_;
  int added_ = 0;
  std::vector<LeftOut> left_out_;
};

}  // namespace quorvale
