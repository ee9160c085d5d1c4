#pragma once

#include "platform/win32/widgets/native_control.h"
#include "toolkit/list_box.h"

namespace quorvale {

// The system's list without texts of its own: it asks for those in view, so that ten thousand items cost
// nothing.
class ListBoxControl : public ControlPeer<ListBoxPeer> {
 public:
  ListBoxControl(DialogWindow& dialog, ListBox& list);

  void ItemsAdded(int /*first*/, int /*count*/) override { ShowSoon(); }
  void ItemsRemoved(int /*first*/, int /*count*/) override { ShowSoon(); }
  void ItemChanged(int /*index*/) override { ShowSoon(); }
  void SelectionChanged() override { ShowSoon(); }
  void FollowScale() override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
  void OnCommand(int code) override;
  void OnDraw(const DRAWITEMSTRUCT& item) override;

 private:
  void FitLines() const;
  void ShowSoon();
  void ShowItems();
  void SelectRange(int first, int last) const;
  void ReportSelection();
  void TakeDrop(WPARAM drop);

  ListBox& list_;
  // Changes are made in loops; they are shown together, once.
  bool is_stale_ = false;
};

}  // namespace quorvale
