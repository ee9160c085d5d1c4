#pragma once

#include <string>
#include <vector>

#include "system/path_syntax.h"

namespace quorvale {

class Application;
class ListBox;

// Adds entries to the end of a list box. A name that an entry or a line of a play list file would not give
// back as it was is left out, and so is what no longer fits the list.
class EntryAdder {
 public:
  EntryAdder(ListBox& list, PathSyntax syntax) : list_(list), syntax_(syntax) {}

  void AddFile(const std::string& name, const std::string& directory);
  // `directory` ends in a separator.
  void AddDirectory(const std::string& directory);
  // Entries that the list has taken.
  int Added() const { return added_; }

  // Says in one box which names were left out and why; does nothing where none was.
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
