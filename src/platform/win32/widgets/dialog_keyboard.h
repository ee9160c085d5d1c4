#pragma once

#include <string>

#include "platform/win32/windows_api.h"

namespace quorvale {

class NativeControl;

// Whether an "&" in the caption marks that key, in either case.
bool IsAccessKeyOf(const std::string& caption, wchar_t key);

// The keys of a dialog: Tab, Enter, Escape, access keys, and everything else that the system's dialogs do. The system's
// own tab order finishes one frame before it goes to the next; ours follows the tab indices across all frames.
class DialogKeyboard {
 public:
  explicit DialogKeyboard(HWND dialog) : dialog_(dialog) {}

  // Sorts the controls by tab index, once all of them are there. For the system, tab order and stacking order are the
  // same. Pictures and tab strips go below the other controls, and so do controls without a tab index.
  void ArrangeControls() const;

  // Returns true if it handled the message.
  bool Translate(MSG& message) const;
  // The tab stop behind `from`, or before it; the first one if `from` is not a control. Null if there is none.
  HWND NextTabStop(HWND from, bool backwards) const;
  void MoveFocus(bool backwards) const;

  // The buttons that Enter and Escape press. A focused button takes Enter for itself.
  void SetDefaultButton(NativeControl& button) { default_button_ = &button; }
  void SetCancelButton(NativeControl& button) { cancel_button_ = &button; }
  void ForgetButton(const NativeControl& button);
  // A button has got or lost the focus: moves the mark of the button that Enter presses.
  void MarkDefault(const NativeControl& focused) const;
  void UnmarkDefault(const NativeControl& focused) const;

 private:
  bool TranslateDialogKey(const MSG& message) const;
  bool PressAccessKey(wchar_t key) const;
  void PressDefault() const;

  HWND dialog_;
  NativeControl* default_button_ = nullptr;
  NativeControl* cancel_button_ = nullptr;
};

}  // namespace quorvale
