#include <algorithm>
#include <cmath>

#include "base/failure.h"
#include "toolkit/application.h"
#include "toolkit/picture_box.h"

// The drawing methods of a picture box.

namespace quorvale {
namespace {

// Coordinates are clamped to this. It is so far outside every surface that the result does not change.
constexpr double kFarthest = 1e7;

double DevicePosition(float twips, float scale) {
  if (!std::isfinite(twips)) throw Failure(FailureNumber::kInvalidArgument, "Invalid coordinate", "PictureBox");
  return std::clamp(ToPixels(twips, scale), -kFarthest, kFarthest);
}

}  // namespace

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
