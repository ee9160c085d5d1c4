#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "toolkit/control.h"
#include "toolkit/picture.h"
#include "toolkit/picture_box.h"
#include "toolkit/units.h"

namespace quorvale {

// Shows a picture. Its picture box paints it; it is no window. On a form directly it is never painted and
// only measures pictures. Positions and sizes are in twips, relative to the container.
class ImageControl : public Control {
 public:
  // `stretch`: scale the picture to the control; otherwise the control gets the picture's size.
  ImageControl(PictureBox& container, std::string name, bool stretch);
  ImageControl(Form& container, std::string name, bool stretch);

  std::function<void()> MouseMove;
  std::function<void()> MouseDown;

  // Fails with kInvalidArgument if the image is not on a picture box.
  PictureBox& Container() const;

  // These fail with kNotLoaded when the form is not loaded.
  float Left() const;
  float Top() const;
  float Width() const;
  float Height() const;
  void SetLeft(float left);
  void SetTop(float top);
  // These two also fail with kInvalidValue below 0.
  void SetWidth(float width);
  void SetHeight(float height);
  TwipRect Bounds() const { return bounds_; }

  // Where the whole picture lies if only the part inside the bounds is shown. Unless it is set, the picture has the
  // control's bounds. Repaints nothing.
  TwipRect PictureBounds() const { return picture_bounds_.value_or(bounds_); }
  void SetPictureBounds(const std::optional<TwipRect>& bounds) { picture_bounds_ = bounds; }

  bool Visible() const { return visible_; }
  void SetVisible(bool visible);

  // Null when it shows nothing.
  const std::shared_ptr<Picture>& GetPicture() const { return picture_; }
  void SetPicture(std::shared_ptr<Picture> picture);

 private:
  void SetBounds(const TwipRect& bounds);
  void RepaintOnContainer(const TwipRect& area);

  PictureBox* container_;
  bool stretch_;
  bool visible_ = true;
  TwipRect bounds_;
  std::optional<TwipRect> picture_bounds_;
  std::shared_ptr<Picture> picture_;
};

}  // namespace quorvale
