#pragma once

#include <functional>
#include <memory>
#include <string>

#include "toolkit/units.h"
#include "toolkit/widget_peer.h"

namespace quorvale {

class Application;
class Form;

// A control of a form. It is a member of the form's class and has a unique name there.
class Control {
 public:
  Control(Form& parent, std::string name);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Form& Parent() const { return parent_; }
  const std::string& Name() const { return name_; }

 protected:
  friend class Form;

  // Called when the form's window exists. Creates the platform's peer.
  virtual void CreatePeer() {}
  // Passes the peer to `Application::KeepUntilIdle`.
  virtual void ReleasePeer() {}

  Application& App() const;
  // Fails with kNotLoaded unless the form is loaded.
  void RequireLoaded() const;

 private:
  Form& parent_;
  std::string name_;
};

class Frame;

// The caption that shows `text` literally, without an access key.
std::string LiteralCaption(const std::string& text);

// A control's properties at design time.
struct WidgetDesign {
  std::string name;
  // An "&" marks the access key, "&&" is an ampersand.
  std::string caption = {};
  // In twips, on the container.
  TwipRect place = {};
  std::string tool_tip = {};
  // The place in the tab order; -1 is none.
  int tab_index = -1;
  // Null is the form itself.
  Frame* container = nullptr;
  bool visible = true;
};

// A control that the platform shows by a peer. The state is kept here and can be read and set at any time; the peer
// follows. Positions and sizes are in twips, relative to the container.
class Widget : public Control {
 public:
  Widget(Form& parent, WidgetDesign design);

  const WidgetDesign& Design() const { return design_; }

  const std::string& Caption() const { return design_.caption; }
  void SetCaption(std::string caption);
  bool Enabled() const { return enabled_; }
  // If disabling takes the focus away, the control gets it back when the same event enables it again.
  void SetEnabled(bool enabled);
  bool Visible() const { return design_.visible; }
  void SetVisible(bool visible);
  const TwipRect& Place() const { return design_.place; }
  void Move(const TwipRect& place);

  // Moves the focus to it. Fails with kInvalidArgument if it, or a frame around it, is hidden or disabled.
  void SetFocus();
  bool CanTakeFocus() const;
  // Whether the user can do something with it. The Tab key passes over the others.
  virtual bool Acts() const { return true; }
  // Whether the Tab key comes to it while it is visible and enabled.
  bool IsTabStop() const { return design_.tab_index >= 0 && Acts(); }
  bool HasFocus() const;

 protected:
  void CreatePeer() override;
  void ReleasePeer() override;

  // Creates the peer for this type of control.
  virtual std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) = 0;

  // Makes the peer, if there is one, read `aspect` again.
  void UpdatePeer(WidgetAspect aspect);
  WidgetPeer* Peer() const { return peer_.get(); }

  // Runs an event handler if there is one and the form is loaded.
  void Raise(const std::function<void()>& handler);

 private:
  WidgetDesign design_;
  bool enabled_ = true;
  std::unique_ptr<WidgetPeer> peer_;
};

}  // namespace quorvale
