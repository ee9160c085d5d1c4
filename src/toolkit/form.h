#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "system/window_system.h"
#include "toolkit/application.h"
#include "toolkit/bitmap.h"
#include "toolkit/platform.h"

namespace quorvale {

class Control;
class Widget;

// A top-level window with controls and event handlers. Create it with `std::make_shared`; it is loaded, perhaps shown,
// and unloaded once. `Application::forms` owns it while it is loaded; only a form of the kind `kMonitor` is not listed
// there, and has an owner of its own. After that, its methods and those of its controls
// fail with kNotLoaded.
//
// Left, Top, Width and Height are in twips, from the corner of the primary monitor. Those of a dialog count
// a frame and a menu bar of the usual sizes, whatever theirs are on the screen.
class Form : public std::enable_shared_from_this<Form>, private WindowEvents {
 public:
  Form(Application& application, std::string name, WindowKind kind, std::string caption);
  ~Form() override;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  Application& App() const { return application_; }
  const std::string& Name() const { return name_; }
  WindowKind Kind() const { return kind_; }

  // Creates the windows of the form and its controls and runs the load handler. If the handler fails, the form is
  // removed again and the failure passed on. Does nothing on a loaded form.
  void Load();
  // Loads the form if necessary, shows it and returns at once.
  void Show();
  // The same, but returns when the form has been unloaded. No other form takes input meanwhile.
  void ShowModal();
  // Runs the QueryUnload handler and, unless that cancels, the Unload handler; then removes the form. Does nothing if
  // the form is not loaded or already being unloaded.
  void Unload();

  bool IsLoaded() const { return state_ != State::kUnloaded; }
  bool Visible() const;
  WindowHandle Hwnd() const;
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);

  float Left() const { return bounds_.left; }
  float Top() const { return bounds_.top; }
  float Width() const { return bounds_.width; }
  float Height() const { return bounds_.height; }
  void Move(float left, float top, float width, float height);
  // Centres it on the primary monitor.
  void CenterOnScreen();
  // Sets the size of the area inside the frame and below the menu.
  void SetClientSize(float width, float height);

  // The small picture in its title bar; none at first.
  const Artwork& Icon() const { return icon_; }
  void SetIcon(Artwork icon);

  // The control of that type and name. Fails with kNoSuchEntry.
  template <typename ControlType>
  ControlType& Find(std::string_view control_name) const;

  // Calls `visit` with each control of that type, in order of creation.
  template <typename ControlType, typename Visitor>
  void ForEach(Visitor visit) const;

  // Fails with kNotLoaded unless the form is loaded. For controls.
  void RequireLoaded() const;
  WindowPeer& Window() const;

 protected:
  virtual void Form_Load() {}
  virtual void Form_QueryUnload(bool& /*cancel*/) {}
  virtual void Form_Unload() {}
  virtual void Form_KeyDown(int /*key*/) {}
  virtual void Form_MouseDown() {}
  virtual void Form_MouseMove() {}
  // The user pressed F1.
  virtual void Form_Help() {}
  // The saver window lost the focus to another program or is no longer visible.
  virtual void Form_Deactivate() {}
  // The size of the saver window's screen changed, or it must move to another screen.
  virtual void Form_ScreenChange() {}

 private:
  friend class Application;
  friend class Control;
  friend class Widget;
  enum class State { kUnloaded, kLoading, kLoaded, kUnloading };

  void OnKeyDown(int key) override;
  void OnMouseDown() override;
  void OnMouseMove() override;
  void OnCloseRequested() override;
  void OnHelpRequested() override;
  void OnDeactivated() override;
  void OnScreenChanged() override;

  // The part of a dialog's size that its frame and menu take, in pixels.
  PixelRect NominalFrame() const;
  void SendBounds();

  // Controls that lost the focus because they were disabled. Each gets it back if it is enabled again before the
  // handler that disabled it returns, unless the focus has been moved meanwhile.
  struct LostFocus {
    std::vector<const Widget*> by;
    const Widget* now_at = nullptr;
    std::uint64_t handler = 0;
  };

  const Widget* FocusedControl() const;
  void RecordFocusLoss(const Widget& control);
  // Gives the focus back to `control` if it is one of these. Those that lost it earlier keep their claim.
  bool ReclaimFocus(const Widget& control);

  // Null if there is none. Case is ignored.
  Control* FindControl(std::string_view control_name) const;
  [[noreturn]] void ThrowNoSuchControl(std::string_view control_name) const;
  void Destroy();

  Application& application_;
  std::string name_;
  WindowKind kind_;
  std::string caption_;
  TwipRect bounds_;
  State state_ = State::kUnloaded;
  bool visible_ = false;
  Artwork icon_;
  std::unique_ptr<WindowPeer> window_;
  std::vector<Control*> controls_;
  LostFocus lost_focus_;
};

template <typename ControlType>
ControlType& Form::Find(std::string_view control_name) const {
  auto* const control = dynamic_cast<ControlType*>(FindControl(control_name));
  if (control == nullptr) ThrowNoSuchControl(control_name);
  return *control;
}

template <typename ControlType, typename Visitor>
void Form::ForEach(Visitor visit) const {
  for (Control* const control : controls_) {
    if (auto* const wanted = dynamic_cast<ControlType*>(control)) visit(*wanted);
  }
}

}  // namespace quorvale
