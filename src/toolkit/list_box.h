#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/control.h"

namespace quorvale {

// A list of texts, not sorted, with multiple selection. Positions count from 0; invalid ones fail with kNoSuchEntry.
class ListBox : public Widget {
 public:
  static constexpr int kMostItems = 32'767;

  using Widget::Widget;

  // The selection changed, by the user or not.
  std::function<void()> Click;
  std::function<void(const std::vector<std::string>& paths)> Dropped;
  std::function<void()> DeletePressed;

  int ListCount() const { return static_cast<int>(items_.size()); }
  const std::string& List(int index) const;
  void SetList(int index, std::string text);
  // Adds at the end; fails with kListFull beyond `kMostItems`.
  void AddItem(std::string text);
  // Selections of the other items stay.
  void RemoveItem(int index);
  void Clear();

  int SelCount() const { return selected_count_; }
  bool Selected(int index) const;
  void SetSelected(int index, bool selected);

  // The user changed the selection: these items are selected and no others.
  void UserSelect(const std::vector<int>& indices);
  // The user dropped files or folders on it.
  void UserDrop(const std::vector<std::string>& paths);
  // The user pressed Delete while it had the focus.
  void UserDelete();

 protected:
  void ReleasePeer() override;
  std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) override;

 private:
  struct Item {
    std::string text;
    bool selected = false;
  };

  Item& At(int index);
  const Item& At(int index) const;

  std::vector<Item> items_;
  int selected_count_ = 0;
  ListBoxPeer* list_peer_ = nullptr;
};

}  // namespace quorvale
