#pragma once

#include <string>

#include "platform/win32/widgets/native_control.h"
#include "toolkit/list_box.h"

namespace quorvale {

// The system's list, filled anew when texts have changed.
class ListBoxControl : public ControlPeer<ListBoxPeer> {
 public:
  ListBoxControl(DialogWindow& dialog, ListBox& list);

  bool ShowsCaption() const override { return false; }
  void ItemsAdded(int /*first*/, int /*count*/) override { NoteTexts(); }
  void ItemsRemoved(int /*first*/, int /*count*/) override { NoteTexts(); }
  void ItemChanged(int /*index*/) override { NoteTexts(); }
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
  void NoteTexts() {
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
  void TakeDrop(WPARAM drop);

  ListBox& list_;
  // Changes are made in loops; they are shown together, once.
  bool is_stale_ = false;
  bool has_new_texts_ = true;
  // Since the items were last shown, the program has changed the selection.
  bool is_selected_ = false;
};

}  // namespace quorvale
