#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "toolkit/control.h"
#include "toolkit/picture.h"
#include "toolkit/platform.h"
#include "toolkit/surface.h"
#include "toolkit/units.h"

namespace quorvale {

class ImageControl;

// One drawing operation with its arguments, in twips; pens in pixels. Centres, dots and the corner of a text are in
// `x1`, `y1`. Fields that an operation does not use keep their defaults; `kCls` uses none.
struct DrawOperation {
  enum class Kind { kCls, kLine, kBox, kCircle, kPSet, kPrint };
  Kind kind = Kind::kCls;
  float x1 = 0;
  float y1 = 0;
  float x2 = 0;
  float y2 = 0;
  float radius = 0;
  int draw_width = 1;
  Colour colour = kBlack;
  std::string text = {};

  bool operator==(const DrawOperation&) const = default;
};

// A window with a surface for drawings and image controls. Drawing takes effect at once, covers images too, and is not
// recorded: when an image is shown, hidden, moved or changed, its area is repainted with the background colour and the
// visible images only.
//
// All positions and sizes are in twips, from the box's top left corner; pen widths are in the
// toolkit's pixels. Drawing fails with kNotLoaded when the form is not loaded, and with
// kInvalidArgument at a coordinate that is no finite number.
class PictureBox : public Control, private SurfaceEvents {
 public:
  PictureBox(Form& parent, std::string name, Font font);

  std::function<void(int key)> KeyDown;
  std::function<void()> MouseDown;
  std::function<void()> MouseMove;
  // Sees every drawing operation just before it is carried out.
  std::function<void(const DrawOperation&)> Drawing;

  float Left() const { return bounds_.left; }
  float Top() const { return bounds_.top; }
  // These two fail with kNotLoaded.
  float Width() const;
  float Height() const;
  // Repaints the whole box if its size changes.
  void Move(float left, float top, float width, float height);

  WindowHandle Hwnd() const;

  Colour BackColor() const { return back_colour_; }
  // Repaints the whole box if the colour changes.
  void SetBackColor(Colour colour);
  Colour FillColor() const { return fill_colour_; }
  void SetFillColor(Colour colour) { fill_colour_ = colour; }
  Colour ForeColor() const { return fore_colour_; }
  void SetForeColor(Colour colour);
  // In pixels, 1 to 32,767; fails with kInvalidValue outside that range.
  int DrawWidth() const { return draw_width_; }
  void SetDrawWidth(int pixels);
  float CurrentX() const { return current_x_; }
  float CurrentY() const { return current_y_; }
  void SetCurrentX(float x) { current_x_ = x; }
  void SetCurrentY(float y) { current_y_ = y; }

  // Clears the box to the background colour and the visible images; the drawing position is 0, 0 then.
  void Cls();
  // A straight line in that colour, `DrawWidth` wide and centred on the line.
  void Line(float x1, float y1, float x2, float y2, Colour colour);
  // A rectangle filled with that colour. The corners belong to it whatever their order.
  void LineBox(float x1, float y1, float x2, float y2, Colour colour);
  // A disc in `FillColor` with an outline in `ForeColor`, `DrawWidth` wide.
  void Circle(float x, float y, float radius);
  // A filled dot, `DrawWidth` across.
  void PSet(float x, float y, Colour colour);
  // Draws the text in `ForeColor` with its top left corner at the drawing position.
  void Print(const std::string& text);
  float TextWidth(const std::string& text) const;
  float TextHeight(const std::string& text) const;

  // Loads a picture that will be shown in this box: `box` gives its place, in twips, from its natural
  // size. Only `part` of this box will show it; without, all can. What was drawn before is on the screen while the file
  // is read. Fails as `PictureLoader`.
  std::shared_ptr<Picture> LoadPicture(const std::string& path,
                                       const std::function<TwipRect(const TwipSize& natural)>& box,
                                       const std::optional<TwipRect>& part = {});

  // Paints `picture` in `box`, and the rest of `area` with an enlarged and blurred copy of it.
  void PaintBackdrop(Picture& picture, const TwipRect& box, const TwipRect& area);

  // The pauses of one transition on this box.
  std::unique_ptr<PacedRun> OpenPacedRun();

  void TakeFocus();

  // For image controls: repaints `area`.
  void Repaint(const TwipRect& area);
  void Attach(ImageControl& image) { images_.push_back(&image); }

  Surface& Pixels() { return surface_; }

 protected:
  void CreatePeer() override;
  void ReleasePeer() override;

 private:
  void OnKeyDown(int key) override;
  void OnMouseDown(int x, int y) override;
  void OnMouseMove(int x, int y) override;
  void OnScaleChanged() override;

  void Resize();
  void RepaintPixels(const PixelRect& area);
  // Passes `operation` to `Drawing`, which may unload the form.
  void Announce(const DrawOperation& operation);
  void InvalidateIfDirty();
  // Runs an event handler if the form is loaded. Keeps the form alive meanwhile.
  void Dispatch(const std::function<void()>& handler);
  // The pen's width in device pixels.
  double Pen() const;
  float ToTwips(int device_pixels) const;
  ImageControl* ImageAt(int x, int y) const;

  TwipRect bounds_;
  Font font_;
  Colour back_colour_ = kBlack;
  Colour fill_colour_ = kBlack;
  Colour fore_colour_ = kBlack;
  int draw_width_ = 1;
  float current_x_ = 0;
  float current_y_ = 0;
  float scale_ = 1;
  Surface surface_;
  std::vector<ImageControl*> images_;
  std::unique_ptr<SurfacePeer> peer_;
};

}  // namespace quorvale
