#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/win32/toolkit/top_window.h"
#include "platform/win32/widgets/dialog_keyboard.h"
#include "platform/win32/widgets/dialog_theme.h"

namespace quorvale {

class Frame;
class Win32MenuBar;
class Widget;

// The window of a form with controls: their focus, keyboard, tool tips and theme, and the menu bar.
class DialogWindow : public TopWindow {
 public:
  DialogWindow(PixelKind pixels, WindowEvents& events);
  ~DialogWindow() override;
  DialogWindow(const DialogWindow&) = delete;
  DialogWindow& operator=(const DialogWindow&) = delete;

  void Appear() override;
  void Hide() override;
  // Runs events until the window is hidden. Disables the program's other windows meanwhile.
  void RunModal();

  // The members down to `OfferFocus` are for the controls.

  // The parent window of a control: its frame, or this window.
  HWND ContainerOf(const Widget& widget) const;
  void AddContainer(const Frame& frame, HWND window) { containers_[&frame] = window; }
  // An empty text removes the tool tip.
  void SetToolTip(HWND control, const std::string& text) const;
  DialogKeyboard& Keyboard() { return keyboard_; }
  PageBackground& Page() { return page_; }
  HFONT FontOf(float points, bool bold) { return fonts_->Get(points, bold); }
  // Sets the focus now, or when the window appears.
  void Focus(HWND control);
  // The control is about to be hidden or disabled. If it has the focus then, and can't keep it after the event that is
  // being handled, the next tab stop gets it.
  void MoveFocusFromSoon(HWND control) const;
  // Null removes the menu bar.
  void SetMenuBar(Win32MenuBar* bar);

  void OfferFocus(HWND /*picture_box*/) override {}
  bool TranslateKey(MSG& message) override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  void MoveFocusFrom(HWND control) const;
  void FollowScale(int dpi, const RECT& wanted);
  void FitToolTips(int dpi);
  void EnableOthers();

  std::unique_ptr<DialogFonts> fonts_;
  HWND tool_tips_;
  GdiFont tool_tip_font_;
  PageBackground page_;
  std::map<const Frame*, HWND> containers_;
  DialogKeyboard keyboard_;
  Win32MenuBar* menu_bar_ = nullptr;
  HWND focus_ = nullptr;
  bool is_arranged_ = false;
  // The windows that this one has disabled while it is modal.
  std::vector<HWND> disabled_;
};

}  // namespace quorvale
