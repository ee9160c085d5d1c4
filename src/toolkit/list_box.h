#pragma once

#include <string>
#include <vector>

#include "toolkit/control.h"

namespace quorvale {

// A list of texts in the order in which they were added. Positions count from 0; a position that is not
// there fails with kNoSuchEntry.
class ListBox : public Control {
 public:
  static constexpr int kMostItems = 32'767;

  using Control::Control;

  int ListCount() const { return static_cast<int>(items_.size()); }
  const std::string& List(int index) const;
  void SetList(int index, std::string text);
  // Adds at the end; fails with kListFull beyond `kMostItems`.
  void AddItem(std::string text);
  void RemoveItem(int index);
  void Clear() { items_.clear(); }

 private:
  void Require(int index) const;

  std::vector<std::string> items_;
};

}  // namespace quorvale
