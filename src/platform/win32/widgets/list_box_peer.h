#pragma once

#include <string>

#include "platform/win32/widgets/native_control.h"
#include "toolkit/list_box.h"

namespace quorvale {

// A Windows list box. It is filled anew if texts have changed.
class ListBoxControl : public ControlPeer<ListBoxPeer> {
 public:
  ListBoxControl(DialogWindow& dialog, ListBox& list);

  bool ShowsCaption() const override { return false; }
  void ItemsAdded(int /*first*/, int /*count*/) override { TextsChanged(); }
  void ItemsRemoved(int /*first*/, int /*count*/) override { TextsChanged(); }
  void ItemChanged(int /*index*/) override { TextsChanged(); }
  void SelectionChanged() override {
    is_selected_ = true;
    ShowSoon();
  }
  void FollowScale() override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
  void OnCommand(int code) override;
  void OnDraw(const DRAWITEMSTRUCT& item) override;

 private:
  void FitLines() const;
  void TextsChanged() {
    has_new_texts_ = true;
    ShowSoon();
  }
  void ShowSoon();
  void ShowItems();
  void ShowTexts();
  void PutCaret(int index) const;
  std::wstring ShownText(int index) const;
  void SelectRange(int first, int last) const;
  void ReportSelection();
  void Drop(WPARAM drop);

  ListBox& list_;
  // Programs change items in loops, so the changes are shown together by one posted message.
  bool is_stale_ = false;
  bool has_new_texts_ = true;
  // The program has changed the selection since the items were last shown.
  bool is_selected_ = false;
};

}  // namespace quorvale
