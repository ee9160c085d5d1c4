#include "toolkit/list_box.h"

#include <utility>

#include "base/failure.h"

namespace quorvale {

const std::string& ListBox::List(int index) const {
  Require(index);
  return items_[static_cast<std::size_t>(index)];
}

void ListBox::SetList(int index, std::string text) {
  Require(index);
  items_[static_cast<std::size_t>(index)] = std::move(text);
}

void ListBox::AddItem(std::string text) {
  if (ListCount() >= kMostItems) throw Failure(FailureNumber::kListFull, "The list is full", Name());
  items_.push_back(std::move(text));
}

void ListBox::RemoveItem(int index) {
  Require(index);
  items_.erase(items_.begin() + index);
}

void ListBox::Require(int index) const {
  if (index < 0 || index >= ListCount()) throw Failure(FailureNumber::kNoSuchEntry, "No such item", Name());
}

}  // namespace quorvale
