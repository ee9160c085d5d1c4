#include "toolkit/picture_box.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/failure.h"
#include "toolkit/application.h"
#include "toolkit/backdrop.h"
#include "toolkit/form.h"
#include "toolkit/image_control.h"

namespace quorvale {
namespace {

constexpr int kWidestPen = 32'767;
// A limit beyond any screen, so that a huge box can't exhaust memory.
constexpr double kMostPixels = 1 << 28;

int DevicePixels(int pixels, float scale) {
  return static_cast<int>(std::lround(static_cast<double>(pixels) * static_cast<double>(scale)));
}

bool Contains(const PixelRect& rect, int x, int y) {
  return x >= rect.left && x < rect.Right() && y >= rect.top && y < rect.Bottom();
}

// Coordinates are clamped to this. It is so far outside every surface that the result does not change.
constexpr double kFarthestPixel = 1e7;

double DevicePosition(float twips, float scale) {
  if (!std::isfinite(twips)) throw Failure(FailureNumber::kInvalidArgument, "Invalid coordinate", "PictureBox");
  return std::clamp(ToPixels(twips, scale), -kFarthestPixel, kFarthestPixel);
}

}  // namespace

PictureBox::PictureBox(Form& parent, std::string name, Font font)
    : Control(parent, std::move(name)), font_(std::move(font)) {}

float PictureBox::Width() const {
  RequireLoaded();
  return bounds_.width;
}

float PictureBox::Height() const {
  RequireLoaded();
  return bounds_.height;
}

void PictureBox::Move(float left, float top, float width, float height) {
  const TwipRect old = std::exchange(bounds_, {left, top, width, height});
  if (!peer_) return;
  if (width == old.width && height == old.height) {
    peer_->SetBounds(ToPixels(bounds_, 1));
    return;
  }
  try {
    Resize();
  } catch (...) {
    bounds_ = old;
    throw;
  }
}

WindowHandle PictureBox::Hwnd() const {
  RequireLoaded();
  return peer_->Handle();
}

void PictureBox::SetBackColor(Colour colour) {
  if (std::exchange(back_colour_, colour) != colour) RepaintPixels(surface_.Bounds());
}

void PictureBox::SetForeColor(Colour colour) { fore_colour_ = colour; }

void PictureBox::SetDrawWidth(int pixels) {
  if (pixels < 1 || pixels > kWidestPen) throw Failure(FailureNumber::kInvalidValue, "Invalid pen width", Name());
  draw_width_ = pixels;
}

std::shared_ptr<Picture> PictureBox::LoadPicture(const std::string& path,
                                                 const std::function<TwipRect(const TwipSize& natural)>& box,
                                                 const std::optional<TwipRect>& part) {
  RequireLoaded();
  peer_->Present();
  const auto pixel_box = [box, scale = scale_](const TwipSize& natural) { return ToPixels(box(natural), scale); };
  const PixelRect bounds = surface_.Bounds();
  const PixelRect clip = part ? Intersect(ToPixels(*part, scale_), bounds) : bounds;
  return App().GetPlatform().Pictures().Load(path, {.box = pixel_box,
                                                    .clip = clip,
                                                    .scale = scale_,
                                                    .memory = surface_.Memory(),
                                                    .while_waiting = App().while_waiting});
}

void PictureBox::PaintBackdrop(Picture& picture, const TwipRect& box, const TwipRect& area) {
  RequireLoaded();
  const PixelRect covered = Intersect(ToPixels(area, scale_), surface_.Bounds());
  const PixelRect whole = ToPixels(box, scale_);
  const PixelRect seen = Intersect(whole, covered);
  if (seen.IsEmpty() || seen == covered) return;
  surface_.FillRect(seen, ToPixel(back_colour_));
  picture.Paint(surface_.Pixels(), whole, seen);
  quorvale::PaintBackdrop(surface_.Pixels(), seen, covered);
  surface_.Changed(covered);
  InvalidateIfDirty();
}

std::unique_ptr<PacedRun> PictureBox::OpenPacedRun() {
  RequireLoaded();
  return App().GetPlatform().OpenPacedRun(*peer_);
}

void PictureBox::TakeFocus() {
  RequireLoaded();
  peer_->TakeFocus();
}

void PictureBox::Repaint(const TwipRect& area) { RepaintPixels(ToPixels(area, scale_)); }

void PictureBox::CreatePeer() {
  peer_ = App().GetPlatform().CreateSurfacePeer(Parent().Window(), surface_, *this);
  Resize();
}

void PictureBox::ReleasePeer() {
  if (peer_) App().KeepUntilIdle(std::move(peer_));
}

void PictureBox::OnKeyDown(int key) {
  Dispatch([this, key] {
    if (KeyDown) KeyDown(key);
  });
}

void PictureBox::OnMouseDown(int x, int y) {
  Dispatch([this, x, y] {
    const ImageControl* const image = ImageAt(x, y);
    const auto& handler = image != nullptr ? image->MouseDown : MouseDown;
    if (handler) handler();
  });
}

void PictureBox::OnMouseMove(int x, int y) {
  Dispatch([this, x, y] {
    const ImageControl* const image = ImageAt(x, y);
    const auto& handler = image != nullptr ? image->MouseMove : MouseMove;
    if (handler) handler();
  });
}

void PictureBox::OnScaleChanged() {
  Dispatch([this] { Resize(); });
}

void PictureBox::Dispatch(const std::function<void()>& handler) {
  if (!Parent().IsLoaded()) return;
  App().Dispatch([&handler, form = Parent().shared_from_this()] { handler(); });
}

void PictureBox::Resize() {
  const float scale = peer_->Scale();
  const PixelRect bounds = ToPixels(bounds_, 1);
  const double pixels = static_cast<double>(bounds.width) * bounds.height * scale * scale;
  if (!(pixels <= kMostPixels)) throw Failure(FailureNumber::kInvalidValue, "Invalid size", Name());
  scale_ = scale;
  surface_.Resize(DevicePixels(bounds.width, scale), DevicePixels(bounds.height, scale), ToPixel(back_colour_));
  peer_->SetBounds(bounds);
  RepaintPixels(surface_.Bounds());
}

void PictureBox::RepaintPixels(const PixelRect& area) {
  const PixelRect inside = Intersect(area, surface_.Bounds());
  if (!peer_ || inside.IsEmpty()) return;
  surface_.FillRect(inside, ToPixel(back_colour_));
  for (const ImageControl* const image : images_) {
    if (!image->Visible() || !image->GetPicture()) continue;
    const PixelRect seen = Intersect(ToPixels(image->Bounds(), scale_), inside);
    if (seen.IsEmpty()) continue;
    const PixelRect box = ToPixels(image->PictureBounds(), scale_);
    if (seen == surface_.Bounds()) {
      if (auto pixels = image->GetPicture()->Covering({seen.width, seen.height}, box)) {
        surface_.ShowPixels(std::move(pixels));
        continue;
      }
    }
    image->GetPicture()->Paint(surface_.Pixels(), box, seen);
    surface_.Changed(seen);
  }
  InvalidateIfDirty();
}

void PictureBox::InvalidateIfDirty() {
  if (!surface_.Dirty().IsEmpty()) peer_->Invalidate();
}

ImageControl* PictureBox::ImageAt(int x, int y) const {
  const auto hit = std::find_if(images_.rbegin(), images_.rend(), [x, y](const ImageControl* image) {
    return image->Visible() && Contains(ToPixels(image->Bounds(), 1), x, y);
  });
  return hit == images_.rend() ? nullptr : *hit;
}

void PictureBox::Cls() {
  Announce({.kind = DrawOperation::Kind::kCls});
  current_x_ = 0;
  current_y_ = 0;
  RepaintPixels(surface_.Bounds());
}

void PictureBox::Line(float x1, float y1, float x2, float y2, Colour colour) {
  Announce({.kind = DrawOperation::Kind::kLine,
            .x1 = x1,
            .y1 = y1,
            .x2 = x2,
            .y2 = y2,
            .draw_width = draw_width_,
            .colour = colour});
  surface_.DrawLine(DevicePosition(x1, scale_), DevicePosition(y1, scale_), DevicePosition(x2, scale_),
                    DevicePosition(y2, scale_), Pen(), ToPixel(colour));
  InvalidateIfDirty();
}

void PictureBox::LineBox(float x1, float y1, float x2, float y2, Colour colour) {
  Announce({.kind = DrawOperation::Kind::kBox,
            .x1 = x1,
            .y1 = y1,
            .x2 = x2,
            .y2 = y2,
            .draw_width = draw_width_,
            .colour = colour});
  for (const float coordinate : {x1, y1, x2, y2}) DevicePosition(coordinate, scale_);
  const auto [left, right] = std::minmax(x1, x2);
  const auto [top, bottom] = std::minmax(y1, y2);
  const PixelRect box = ToPixels(TwipRect{left, top, right - left, bottom - top}, scale_);
  surface_.FillRect(Intersect(box, surface_.Bounds()), ToPixel(colour));
  InvalidateIfDirty();
}

void PictureBox::Circle(float x, float y, float radius) {
  Announce({.kind = DrawOperation::Kind::kCircle,
            .x1 = x,
            .y1 = y,
            .radius = radius,
            .draw_width = draw_width_,
            .colour = fore_colour_});
  if (radius < 0) throw Failure(FailureNumber::kInvalidArgument, "Invalid radius", Name());
  surface_.DrawCircle(DevicePosition(x, scale_), DevicePosition(y, scale_), DevicePosition(radius, scale_), Pen(),
                      ToPixel(fore_colour_), ToPixel(fill_colour_));
  InvalidateIfDirty();
}

void PictureBox::PSet(float x, float y, Colour colour) {
  Announce({.kind = DrawOperation::Kind::kPSet, .x1 = x, .y1 = y, .draw_width = draw_width_, .colour = colour});
  surface_.DrawDot(DevicePosition(x, scale_), DevicePosition(y, scale_), Pen(), ToPixel(colour));
  InvalidateIfDirty();
}

void PictureBox::Print(const std::string& text) {
  Announce(
      {.kind = DrawOperation::Kind::kPrint, .x1 = current_x_, .y1 = current_y_, .colour = fore_colour_, .text = text});
  const int left = static_cast<int>(std::lround(DevicePosition(current_x_, scale_)));
  const int top = static_cast<int>(std::lround(DevicePosition(current_y_, scale_)));
  const PixelRect changed =
      App().GetPlatform().Text().Draw(surface_.Pixels(), left, top, text, font_, fore_colour_, scale_);
  surface_.Changed(Intersect(changed, surface_.Bounds()));
  current_x_ = 0;
  current_y_ += TextHeight(text);
  InvalidateIfDirty();
}

float PictureBox::TextWidth(const std::string& text) const {
  RequireLoaded();
  return ToTwips(App().GetPlatform().Text().Measure(text, font_, scale_).width);
}

float PictureBox::TextHeight(const std::string& text) const {
  RequireLoaded();
  return ToTwips(App().GetPlatform().Text().Measure(text, font_, scale_).height);
}

void PictureBox::Announce(const DrawOperation& operation) {
  RequireLoaded();
  if (!Drawing) return;
  Drawing(operation);
  RequireLoaded();
}

double PictureBox::Pen() const { return static_cast<double>(draw_width_) * static_cast<double>(scale_); }

float PictureBox::ToTwips(int device_pixels) const {
  return static_cast<float>(device_pixels) * kTwipsPerPixel / scale_;
}

}  // namespace quorvale
