#pragma once

#include "platform/win32/windows_api.h"
#include "toolkit/spoken_name.h"
#include "toolkit/widget.h"

namespace quorvale {

class DialogWindow;

// The character that Ctrl+A types.
inline constexpr WPARAM kSelectAll = 1;

// The system's class of a control, and how it is made.
struct ControlKind {
  const wchar_t* class_name = nullptr;
  DWORD style = 0;
  DWORD extended_style = 0;
};

// A control of the system's that stands for one of the toolkit's, on its form's window or on a frame. The
// system tells a control's parent what happens to it; the parents hand that back by `Reflect`.
class NativeControl {
 public:
  // Both outlive the control. Fails with kInternal.
  NativeControl(DialogWindow& dialog, Widget& widget, const ControlKind& kind);
  virtual ~NativeControl();
  NativeControl(const NativeControl&) = delete;
  NativeControl& operator=(const NativeControl&) = delete;

  // The control behind that window, or null.
  static NativeControl* Of(HWND window);

  // Hands a parent's message to the control that it is about. False when it is about none.
  static bool Reflect(UINT message, WPARAM first, LPARAM second, LRESULT& result);

  // Null once the window has been destroyed.
  HWND Window() const { return window_; }
  const WidgetDesign& Design() const { return widget_.Design(); }

  // Whether its caption tells what it is; if not, screen readers are told.
  virtual bool ShowsCaption() const { return true; }
  std::string NameToSpeak() const { return SpokenName(widget_); }

  // Whether it is one of a row of option buttons, through which the arrow keys go.
  virtual bool IsOptionButton() const { return false; }
  // Whether what overlaps it stands before it, whatever the order of the two.
  virtual bool IsBackground() const { return false; }
  // Enter presses the button that has the focus.
  virtual bool IsButton() const { return false; }
  virtual void Press() {}

  // The user pressed Alt and that key. True when it means something to the control that the system doesn't know.
  virtual bool TakeAccessKey(wchar_t /*key*/) { return false; }

  // Looks at that aspect of the toolkit's control again.
  virtual void Refresh(WidgetAspect aspect);
  void TakeFocus();
  bool HasFocus() const { return window_ != nullptr && GetFocus() == window_; }
  // The dialog has come to a monitor of another resolution.
  virtual void FollowScale();

 protected:
  // What arrives at the control itself. What it leaves alone goes to the system by `Default`.
  virtual LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) { return Default(message, first, second); }
  LRESULT Default(UINT message, WPARAM first, LPARAM second) const;

  // What the control tells its parent.
  virtual void OnCommand(int /*code*/) {}
  virtual LRESULT OnNotify(NMHDR& /*notice*/) { return 0; }
  virtual void OnScroll() {}
  virtual void OnDraw(const DRAWITEMSTRUCT& /*item*/) {}
  // The brush for a background of its own; null is what lies under the control.
  virtual HBRUSH OnColour(HDC /*context*/) { return nullptr; }

  DialogWindow& Dialog() const { return dialog_; }
  LRESULT Send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
    return SendMessageW(window_, message, first, second);
  }
  void SetFont(float points, bool bold);

 private:
  // Null leaves the colours to the system.
  HBRUSH Background(HDC context);
  void DetachFromWindow() const;
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR id,
                                    DWORD_PTR self);

  DialogWindow& dialog_;
  Widget& widget_;
  HWND window_ = nullptr;
};

// Makes a control of the system's the toolkit's peer.
template <typename Peer = WidgetPeer>
class ControlPeer : public Peer, public NativeControl {
 public:
  using NativeControl::NativeControl;

  void Update(WidgetAspect aspect) override { Refresh(aspect); }
  void TakeFocus() override { NativeControl::TakeFocus(); }
  bool HasFocus() const override { return NativeControl::HasFocus(); }
};

}  // namespace quorvale
