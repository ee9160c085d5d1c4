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

// A top-level window with controls and event handlers. Made with `std::make_shared`, loaded, perhaps
// shown, unloaded once. While it is loaded `Application::Forms` holds it; an unloaded form answers
// nothing any more: asking it or its controls fails with kNotLoaded.
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

  // Makes the window and the controls' windows and runs the load handler. A failure of the handler
  // leaves no trace of the form and goes to the caller. Does nothing on a loaded form.
  void Load();
  // Loads the form where that has not happened, and brings it on the screen without blocking.
  void Show();
  // The same, and returns once the form has been unloaded. Meanwhile no other form takes input.
  void ShowModal();
  // Asks the QueryUnload handler and, unless that cancels, runs the Unload handler and takes the form
  // off the screen. Does nothing while the form is being unloaded already, or is not loaded.
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
  // Gives it the size at which its controls have that much room, beside the frame and the menu.
  void SetClientSize(float width, float height);

  // The small picture in its title bar; none at first.
  const Artwork& Icon() const { return icon_; }
  void SetIcon(Artwork icon);

  // The control of that name, and of that kind. Fails with kNoSuchEntry.
  template <typename ControlType>
  ControlType& Find(std::string_view control_name) const;

  // Calls `visit` with each control of that kind, in the order of their making.
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
  // A saver window has lost the focus to another program, or is out of sight.
  virtual void Form_Deactivate() {}
  // A saver window has to fit another screen.
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

  // What a dialog's frame and menu take of its size, in pixels.
  PixelRect NominalFrame() const;
  void SendBounds();

  // The focus that controls lost one after the other by being disabled. They have a claim to it until the handler that
  // led to that has returned, or somebody moves the focus from where the platform put it.
  struct LostFocus {
    std::vector<const Widget*> by;
    const Widget* now_at = nullptr;
    std::uint64_t handler = 0;
  };

  const Widget* FocusedControl() const;
  void NoteFocusLost(const Widget& control);
  // Whether that control has a claim, which is met then; those that lost the focus before it keep theirs.
  bool ReclaimFocus(const Widget& control);

  // Null when there is none. Names compare without regard to case.
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
