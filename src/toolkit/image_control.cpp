#include "toolkit/image_control.h"

#include <utility>

#include "base/failure.h"
#include "toolkit/form.h"

namespace quorvale {

ImageControl::ImageControl(PictureBox& container, std::string name, bool stretch)
    : Control(container.Parent(), std::move(name)), container_(&container), stretch_(stretch) {
  container.Attach(*this);
}

ImageControl::ImageControl(Form& container, std::string name, bool stretch)
    : Control(container, std::move(name)), container_(nullptr), stretch_(stretch) {}

PictureBox& ImageControl::Container() const {
  if (container_ == nullptr) throw Failure(FailureNumber::kInvalidArgument, "Not on a picture box", Name());
  return *container_;
}

float ImageControl::Left() const {
  RequireLoaded();
  return bounds_.left;
}

float ImageControl::Top() const {
  RequireLoaded();
  return bounds_.top;
}

float ImageControl::Width() const {
  RequireLoaded();
  return bounds_.width;
}

float ImageControl::Height() const {
  RequireLoaded();
  return bounds_.height;
}

void ImageControl::SetLeft(float left) {
  SetBounds({.left = left, .top = bounds_.top, .width = bounds_.width, .height = bounds_.height});
}

void ImageControl::SetTop(float top) {
  SetBounds({.left = bounds_.left, .top = top, .width = bounds_.width, .height = bounds_.height});
}

void ImageControl::SetWidth(float width) {
  SetBounds({.left = bounds_.left, .top = bounds_.top, .width = width, .height = bounds_.height});
}

void ImageControl::SetHeight(float height) {
  SetBounds({.left = bounds_.left, .top = bounds_.top, .width = bounds_.width, .height = height});
}

void ImageControl::SetVisible(bool visible) {
  if (std::exchange(visible_, visible) != visible) RepaintOnContainer(bounds_);
}

void ImageControl::SetPicture(std::shared_ptr<Picture> picture) {
  RequireLoaded();
  const TwipRect old = bounds_;
  if (!stretch_) {
    const TwipSize size = picture ? picture->NaturalSize(App().GetPlatform().Screen().scale) : TwipSize{};
    bounds_.width = size.width;
    bounds_.height = size.height;
  }
  picture_ = std::move(picture);
  if (!visible_) return;
  RepaintOnContainer(old);
  if (!stretch_) RepaintOnContainer(bounds_);
}

void ImageControl::SetBounds(const TwipRect& bounds) {
  RequireLoaded();
  if (!(bounds.width >= 0 && bounds.height >= 0)) throw Failure(FailureNumber::kInvalidValue, "Invalid size", Name());
  if (bounds == bounds_) return;
  const TwipRect old = std::exchange(bounds_, bounds);
  if (!visible_) return;
  RepaintOnContainer(old);
  RepaintOnContainer(bounds_);
}

void ImageControl::RepaintOnContainer(const TwipRect& area) {
  if (container_ != nullptr) container_->Repaint(area);
}

}  // namespace quorvale
