#include "toolkit/panels.h"

#include <utility>

#include "toolkit/form.h"

namespace quorvale {

Frame::Frame(Form& parent, WidgetDesign design, bool border) : Widget(parent, std::move(design)), border_(border) {}

std::unique_ptr<WidgetPeer> Frame::MakePeer(WidgetFactory& factory) { return factory.Make(Parent().Window(), *this); }

Label::Label(Form& parent, WidgetDesign design, LabelStyle style) : Widget(parent, std::move(design)), style_(style) {}

void Label::SetBackColor(Colour colour) {
  has_back_colour_ = true;
  back_colour_ = colour;
  UpdatePeer(WidgetAspect::kColour);
}

void Label::SetForeColor(Colour colour) {
  has_fore_colour_ = true;
  fore_colour_ = colour;
  UpdatePeer(WidgetAspect::kColour);
}

std::unique_ptr<WidgetPeer> Label::MakePeer(WidgetFactory& factory) { return factory.Make(Parent().Window(), *this); }

Rule::Rule(Form& parent, WidgetDesign design, Colour colour) : Widget(parent, std::move(design)), colour_(colour) {}

std::unique_ptr<WidgetPeer> Rule::MakePeer(WidgetFactory& factory) { return factory.Make(Parent().Window(), *this); }

ImageView::ImageView(Form& parent, WidgetDesign design, Artwork artwork)
    : Widget(parent, std::move(design)), artwork_(std::move(artwork)) {}

void ImageView::SetArtwork(Artwork artwork) {
  artwork_ = std::move(artwork);
  UpdatePeer(WidgetAspect::kContents);
}

void ImageView::UserClick() {
  if (Enabled()) Raise(Click);
}

std::unique_ptr<WidgetPeer> ImageView::MakePeer(WidgetFactory& factory) {
  return factory.Make(Parent().Window(), *this);
}

TabStrip::TabStrip(Form& parent, WidgetDesign design, std::vector<Tab> tabs)
    : Widget(parent, std::move(design)), tabs_(std::move(tabs)) {}

void TabStrip::UserSelect(int index) {
  if (index < 1 || index > static_cast<int>(tabs_.size())) return;
  selected_ = index;
  UpdatePeer(WidgetAspect::kValue);
  Raise(Click);
}

void TabStrip::UserTurn(bool backwards) {
  const int count = static_cast<int>(tabs_.size());
  if (count > 0) UserSelect((selected_ + (backwards ? count - 2 : 0)) % count + 1);
}

std::unique_ptr<WidgetPeer> TabStrip::MakePeer(WidgetFactory& factory) {
  return factory.Make(Parent().Window(), *this);
}

}  // namespace quorvale
