#pragma once

#include <string>
#include <vector>

#include "system/path_syntax.h"

namespace quorvale {

class Application;
class ListBox;

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
  void TellLeftOut(Application& app) const;

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
