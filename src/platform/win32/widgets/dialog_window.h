#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/win32/toolkit/top_window.h"
#include "platform/win32/widgets/dialog_fonts.h"
#include "platform/win32/widgets/page_background.h"

namespace quorvale {

class Frame;
class NativeControl;
class Win32MenuBar;
class Widget;

// The window of a form with controls: the dialog keys, the menu, the tool tips, the fonts.
class DialogWindow : public TopWindow {
 public:
  DialogWindow(PixelKind pixels, WindowEvents& events);
  ~DialogWindow() override;
  DialogWindow(const DialogWindow&) = delete;
  DialogWindow& operator=(const DialogWindow&) = delete;

  void Appear() override;
  void Hide() override;
  // Runs events until the window is hidden. Meanwhile no other window of the program takes input.
  void RunModal();

  // For the controls.
  HWND ContainerOf(const Widget& widget) const;
  void AddContainer(const Frame& frame, HWND window) { containers_[&frame] = window; }
  // Empty takes it away.
  void SetToolTip(HWND control, const std::string& text) const;
  PageBackground& Page() { return page_; }
  HFONT FontOf(float points, bool bold) { return fonts_->Get(points, bold); }
  // At once, or when the window comes on the screen.
  void Focus(HWND control);
  // That control is about to go or to be disabled: if it has the focus, another takes it once the handler that runs
  // has done all that it does.
  void LeaveSoon(HWND control) const;
  // What Enter and Escape press.
  void SetDefaultButton(NativeControl& button) { default_button_ = &button; }
  void SetCancelButton(NativeControl& button) { cancel_button_ = &button; }
  void ForgetButton(const NativeControl& button);
  // Shows which button Enter presses: the one that has the focus, else the default button.
  void MarkDefault(const NativeControl& focused) const;
  void UnmarkDefault(const NativeControl& focused) const;
  // Null takes it away.
  void SetMenuBar(Win32MenuBar* bar);

  void OfferFocus(HWND /*picture_box*/) override {}
  bool TranslateKey(MSG& message) override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  bool TranslateDialogKey(const MSG& message);
  void Leave(HWND control) const;
  void MoveFocus(bool backwards) const;
  bool TakeAccessKey(wchar_t key) const;
  void PressDefault() const;
  void FollowScale(int dpi, const RECT& wanted);
  void LetOthersTakeInput();

  std::unique_ptr<DialogFonts> fonts_;
  HWND tool_tips_;
  PageBackground page_;
  std::map<const Frame*, HWND> containers_;
  NativeControl* default_button_ = nullptr;
  NativeControl* cancel_button_ = nullptr;
  Win32MenuBar* menu_bar_ = nullptr;
  HWND focus_ = nullptr;
  bool is_arranged_ = false;
  // Those that take no input while this window is modal.
  std::vector<HWND> held_back_;
};

}  // namespace quorvale
