#include "toolkit/control.h"

#include <utility>

#include "base/failure.h"
#include "toolkit/form.h"
#include "toolkit/panels.h"

namespace quorvale {

Control::Control(Form& parent, std::string name) : parent_(parent), name_(std::move(name)) {
  parent.controls_.push_back(this);
}

Application& Control::App() const { return parent_.App(); }

void Control::RequireLoaded() const { parent_.RequireLoaded(); }

std::string LiteralCaption(const std::string& text) {
  std::string caption;
  for (const char c : text) caption.append(c == '&' ? 2 : 1, c);
  return caption;
}

Widget::Widget(Form& parent, WidgetDesign design) : Control(parent, design.name), design_(std::move(design)) {}

void Widget::SetCaption(std::string caption) {
  design_.caption = std::move(caption);
  UpdatePeer(WidgetAspect::kCaption);
}

void Widget::SetEnabled(bool enabled) {
  if (std::exchange(enabled_, enabled) == enabled) return;
  const bool had_focus = HasFocus();
  UpdatePeer(WidgetAspect::kEnabled);
  if (!enabled && had_focus) Parent().RecordFocusLoss(*this);
  if (enabled && peer_ && CanTakeFocus() && Parent().ReclaimFocus(*this)) peer_->TakeFocus();
}

void Widget::SetVisible(bool visible) {
  if (std::exchange(design_.visible, visible) != visible) UpdatePeer(WidgetAspect::kVisible);
}

void Widget::Move(const TwipRect& place) {
  design_.place = place;
  UpdatePeer(WidgetAspect::kPlace);
}

void Widget::SetFocus() {
  RequireLoaded();
  if (!CanTakeFocus()) throw Failure(FailureNumber::kInvalidArgument, "Can't take the focus", Name());
  peer_->TakeFocus();
}

bool Widget::CanTakeFocus() const {
  if (!enabled_ || !design_.visible) return false;
  return design_.container == nullptr || design_.container->CanTakeFocus();
}

bool Widget::HasFocus() const { return peer_ && peer_->HasFocus(); }

void Widget::CreatePeer() { peer_ = MakePeer(App().GetPlatform().Widgets()); }

void Widget::ReleasePeer() {
  if (peer_) App().KeepUntilIdle(std::move(peer_));
}

void Widget::UpdatePeer(WidgetAspect aspect) {
  if (peer_) peer_->Update(aspect);
}

void Widget::Raise(const std::function<void()>& handler) {
  if (!handler || !Parent().IsLoaded()) return;
  App().Dispatch([handler, form = Parent().shared_from_this()] { handler(); });
}

}  // namespace quorvale
