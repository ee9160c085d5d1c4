#pragma once

#include <functional>
#include <memory>
#include <string>

#include "toolkit/control.h"
#include "toolkit/units.h"
#include "toolkit/widget_peer.h"

namespace quorvale {

class Frame;

// A text as a caption that shows it as it is, with no access key.
std::string LiteralCaption(const std::string& text);

// How a control stands on its form when the form is loaded.
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

// A control with a window of the platform's own. It holds its state itself, so that it can be asked and set
// at any time; the platform's peer follows. Positions and sizes are in twips, on the container.
class Widget : public Control {
 public:
  Widget(Form& parent, WidgetDesign design);

  const WidgetDesign& Design() const { return design_; }

  const std::string& Caption() const { return design_.caption; }
  void SetCaption(std::string caption);
  bool Enabled() const { return enabled_; }
  // A control that loses the focus by being disabled has it back when the same event enables it again.
  void SetEnabled(bool enabled);
  bool Visible() const { return design_.visible; }
  void SetVisible(bool visible);
  const TwipRect& Place() const { return design_.place; }
  void Move(const TwipRect& place);

  // Gives it the focus. Fails with kInvalidArgument when it can't take it: hidden, disabled or on a hidden frame.
  void SetFocus();
  bool CanTakeFocus() const;
  bool HasFocus() const;

 protected:
  void CreatePeer() override;
  void ReleasePeer() override;

  // Makes the peer that fits the control's kind.
  virtual std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) = 0;

  // Tells the peer, if there is one, what to look at again.
  void Tell(WidgetAspect aspect);
  WidgetPeer* Peer() const { return peer_.get(); }

  // Runs an event's handler, if there is one, as long as the form is loaded.
  void Raise(const std::function<void()>& handler);

 private:
  WidgetDesign design_;
  bool enabled_ = true;
  std::unique_ptr<WidgetPeer> peer_;
};

}  // namespace quorvale
