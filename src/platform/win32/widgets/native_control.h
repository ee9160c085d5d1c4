#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/win32/windows_api.h"
#include "toolkit/control.h"
#include "toolkit/dialog_rules.h"

namespace quorvale {

class DialogWindow;

// The character that Ctrl+A types.
inline constexpr WPARAM kSelectAll = 1;

// The window class and styles of a control.
struct ControlKind {
  const wchar_t* class_name = nullptr;
  DWORD style = 0;
  DWORD extended_style = 0;
};

// A Windows control that shows a widget of the toolkit, on the form's window or in a frame. Windows sends the
// notifications of a control to its parent; our parents pass them back to the control by `Reflect`.
class NativeControl {
 public:
  // `dialog` and `widget` outlive the control. Fails with kInternal.
  NativeControl(DialogWindow& dialog, Widget& widget, const ControlKind& kind);
  virtual ~NativeControl();
  NativeControl(const NativeControl&) = delete;
  NativeControl& operator=(const NativeControl&) = delete;

  // The control of this window, or null.
  static NativeControl* Of(HWND window);

  // Passes a message that a parent has got to the control that sent it. False if that is not one of ours.
  static bool Reflect(UINT message, WPARAM first, LPARAM second, LRESULT& result);

  // Null once the window has been destroyed.
  HWND Window() const { return window_; }
  const WidgetDesign& Design() const { return widget_.Design(); }

  // Whether screen readers find its name in its window text. If not, they need `NameToSpeak`.
  virtual bool ShowsCaption() const { return !widget_.Caption().empty(); }
  std::string NameToSpeak() const { return SpokenName(widget_); }
  // Screen readers announce it as a link.
  virtual bool IsLink() const { return false; }

  // The arrow keys move between adjacent option buttons.
  virtual bool IsOptionButton() const { return false; }
  // Lies behind the controls that overlap it, whatever their tab indices.
  virtual bool IsBackground() const { return false; }
  // A focused button takes the Enter key.
  virtual bool IsButton() const { return false; }
  virtual void Press() {}

  // Alt and this key were pressed. Returns true if the control handled it; the system handles the other access keys.
  virtual bool PressAccessKey(wchar_t /*key*/) { return false; }
  // Ctrl+Tab was pressed, with Shift for backwards. Returns true if the control has pages and has turned to another.
  virtual bool TurnPage(bool /*backwards*/) { return false; }

  // Shows that aspect of the widget anew.
  virtual void Refresh(WidgetAspect aspect);
  void TakeFocus();
  bool HasFocus() const { return window_ != nullptr && GetFocus() == window_; }
  // The dialog's scale has changed: sets fonts and places anew.
  virtual void FollowScale();

 protected:
  // A message for the control. `Default` passes it to the system.
  virtual LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) { return Default(message, first, second); }
  LRESULT Default(UINT message, WPARAM first, LPARAM second) const;

  // Notifications of the control, see `Reflect`.
  virtual void OnCommand(int /*code*/) {}
  virtual LRESULT OnNotify(NMHDR& /*notice*/) { return 0; }
  virtual void OnScroll() {}
  virtual void OnDraw(const DRAWITEMSTRUCT& /*item*/) {}
  // The brush for a background of its own. Null shows what lies behind the control.
  virtual HBRUSH OnColour(HDC /*context*/) { return nullptr; }

  virtual void Place() const;
  virtual void ShowValue() { InvalidateRect(window_, nullptr, TRUE); }

  DialogWindow& Dialog() const { return dialog_; }
  LRESULT Send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
    return SendMessageW(window_, message, first, second);
  }
  void SetFont(float points, bool bold);

 private:
  // Null means the system's own colours.
  HBRUSH Background(HDC context);
  void DetachFromWindow() const;
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR id,
                                    DWORD_PTR self);

  DialogWindow& dialog_;
  Widget& widget_;
  HWND window_ = nullptr;
};

// The names of a control and of those in it, or of the controls on a dialog, for screen readers. Empty where the window
// text is the name.
std::vector<std::pair<HWND, std::wstring>> NamesToSpeak(HWND window);
// Hands those names to the system's accessibility service, if there is one. They last as long as the windows.
void NameForScreenReaders(HWND window);

// A Windows control as the peer of a widget.
template <typename Peer = WidgetPeer>
class ControlPeer : public Peer, public NativeControl {
 public:
  using NativeControl::NativeControl;

  void Update(WidgetAspect aspect) override { Refresh(aspect); }
  void TakeFocus() override { NativeControl::TakeFocus(); }
  bool HasFocus() const override { return NativeControl::HasFocus(); }
};

}  // namespace quorvale
