#include "toolkit/list_box.h"

#include <utility>

#include "base/failure.h"
#include "base/strings.h"
#include "toolkit/form.h"

namespace quorvale {

const std::string& ListBox::List(int index) const { return At(index).text; }

void ListBox::SetList(int index, std::string text) {
  At(index).text = std::move(text);
  if (list_peer_ != nullptr) list_peer_->ItemChanged(index);
}

void ListBox::AddItem(std::string text) {
  if (ListCount() >= kMostItems) throw Failure(FailureNumber::kListFull, strings::failures::kListIsFull, Name());
  items_.push_back({.text = std::move(text)});
  if (list_peer_ != nullptr) list_peer_->ItemsAdded(ListCount() - 1, 1);
}

void ListBox::RemoveItem(int index) {
  if (At(index).selected) --selected_count_;
  items_.erase(items_.begin() + index);
  if (list_peer_ != nullptr) list_peer_->ItemsRemoved(index, 1);
}

void ListBox::Clear() {
  const int count = ListCount();
  items_.clear();
  selected_count_ = 0;
  if (list_peer_ != nullptr && count > 0) list_peer_->ItemsRemoved(0, count);
}

bool ListBox::Selected(int index) const { return At(index).selected; }

void ListBox::SetSelected(int index, bool selected) {
  if (std::exchange(At(index).selected, selected) == selected) return;
  selected_count_ += selected ? 1 : -1;
  if (list_peer_ != nullptr) list_peer_->SelectionChanged();
  Raise(Click);
}

void ListBox::UserSelect(const std::vector<int>& indices) {
  for (Item& item : items_) item.selected = false;
  selected_count_ = 0;
  for (const int index : indices) {
    if (!std::exchange(At(index).selected, true)) ++selected_count_;
  }
  Raise(Click);
}

void ListBox::UserDrop(const std::vector<std::string>& paths) {
  if (Dropped && Enabled()) Raise([this, paths] { Dropped(paths); });
}

void ListBox::UserDelete() {
  if (Enabled()) Raise(DeletePressed);
}

void ListBox::ReleasePeer() {
  list_peer_ = nullptr;
  Widget::ReleasePeer();
}

std::unique_ptr<WidgetPeer> ListBox::MakePeer(WidgetFactory& factory) {
  auto peer = factory.Make(Parent().Window(), *this);
  list_peer_ = peer.get();
  return peer;
}

ListBox::Item& ListBox::At(int index) { return const_cast<Item&>(std::as_const(*this).At(index)); }

const ListBox::Item& ListBox::At(int index) const {
  if (index < 0 || index >= ListCount()) throw Failure(FailureNumber::kNoSuchEntry, "No such item", Name());
  return items_[static_cast<std::size_t>(index)];
}

}  // namespace quorvale
