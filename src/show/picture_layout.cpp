#include "show/picture_layout.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>

#include "base/numbers.h"
#include "base/paths.h"
#include "process/failed_steps.h"
#include "process/process.h"
#include "show/show_form.h"
#include "system/file_system.h"
#include "toolkit/units.h"

namespace quorvale {
namespace {

// Twips per unit of the option `FrameThickness`. The configuration window's preview is small, so its frame is
// thinner.
constexpr double kFrameUnit = 20;
constexpr double kPaneFrameUnit = 4;
constexpr int kFramePen = 1;  // pixels
constexpr char kBeforeDate[] = ", ";

// `size` enlarged or reduced in its proportions and centred in `room`: as large as it fits in, or as small as it covers
// the room. The side that decides has the room's length exactly, so that no rounding leaves a gap.
TwipRect Scaled(const TwipSize& size, const TwipRect& room, Scaling scaling) {
  if (!(size.width > 0 && size.height > 0)) {
    return {room.left + room.width / 2, room.top + room.height / 2, 0, 0};
  }
  const bool is_wider = size.width * room.height > size.height * room.width;
  const bool by_width = is_wider == (scaling == Scaling::kFit);
  // Of a picture that is only a line, a pixel stays.
  const float width = std::max(by_width ? room.width : room.height / size.height * size.width, kTwipsPerPixel);
  const float height = std::max(by_width ? room.width / size.width * size.height : room.height, kTwipsPerPixel);
  return {room.left + (room.width - width) / 2, room.top + (room.height - height) / 2, width, height};
}

// One layout. Methods without a result consist of steps of the tick.
class Layout {
 public:
  Layout(Process& process, ShowForm& form, std::int32_t picture_index)
      : process_(process),
        PicBase_(form.PicBase),
        PicPreview_(form.PicPreview),
        imgFullSize_(form.imgFullSize),
        screen_(form.Screen()),
        picture_index_(picture_index) {}

  void PlaceNatural();
  void PlaceStretched();
  // By `Fit` or `Fill`.
  void PlaceScaled(Scaling scaling);

 private:
  std::string Path() const { return process_.show.picture_list.Item(picture_index_); }
  std::string PictureName() const { return PathPart(Path(), kPathName, process_.system.files.Syntax()); }
  std::string Caption() const;
  bool HasCaption() const { return process_.options.ShowFileName(); }
  float RatioX() const { return PicBase_.Width() / screen_.width; }
  float RatioY() const { return PicBase_.Height() / screen_.height; }
  float CentredLeft(float width) const { return (screen_.width - width) / 2 * RatioX(); }
  float CentredTop(float height) const { return (screen_.height - height) / 2 * RatioY(); }
  float CaptionTop() const { return PicBase_.Height() - PicBase_.TextHeight(PictureName()); }

  std::int16_t FrameWidth() const;
  TwipRect Room(float frame_width) const;
  TwipRect ScaledBox(const TwipSize& natural, const TwipRect& room, Scaling scaling) const;
  void MoveTo(const TwipRect& box);
  void PaintBackdrop(float frame_width);

  float ExpectedBottom() const;
  TwipRect ExpectedNaturalBox(const TwipSize& natural) const;
  TwipRect ExpectedStretchedBox() const;

  void MoveToCaption();
  void PrintCaption();
  void DrawFrame(std::int16_t frame_width);

  Process& process_;
  PictureBox& PicBase_;
  ImageControl& PicPreview_;
  ImageControl& imgFullSize_;
  ScreenSize screen_;
  std::int32_t picture_index_;
  // If it is not, the picture before is still in view.
  bool is_loaded_ = false;
};

void Layout::PlaceNatural() {
  Step([&] {
    imgFullSize_.SetPicture(
        PicBase_.LoadPicture(Path(), [&](const TwipSize& natural) { return ExpectedNaturalBox(natural); }));
    is_loaded_ = true;
  });
  Step([&] { PicPreview_.SetTop(CentredTop(imgFullSize_.Height())); });
  Step([&] { PicPreview_.SetLeft(CentredLeft(imgFullSize_.Width())); });
  Step([&] { PicPreview_.SetHeight(imgFullSize_.Height() * RatioY()); });
  Step([&] { PicPreview_.SetWidth(imgFullSize_.Width() * RatioX()); });
  Step([&] { PicPreview_.SetPicture(imgFullSize_.GetPicture()); });
  std::int16_t frame_width = 0;
  Step([&] { frame_width = FrameWidth(); });
  if (HasCaption()) {
    MoveToCaption();
    // Compares the height, not the lower edge, so a centred picture may still overlap the file name.
    StepIf([&] { return PicPreview_.Height() > PicBase_.CurrentY(); },
           [&] { Step([&] { PicPreview_.SetHeight(PicBase_.CurrentY() - PicPreview_.Top()); }); });
    PrintCaption();
  }
  if (process_.options.ShowFrame()) DrawFrame(frame_width);
}

void Layout::PlaceStretched() {
  Step([&] { PicPreview_.SetTop(0); });
  Step([&] { PicPreview_.SetLeft(0); });
  Step([&] { PicPreview_.SetWidth(PicBase_.Width()); });
  Step([&] { PicPreview_.SetHeight(PicBase_.Height()); });
  Step([&] {
    PicPreview_.SetPicture(
        PicBase_.LoadPicture(Path(), [&](const TwipSize& /*natural*/) { return ExpectedStretchedBox(); }));
    is_loaded_ = true;
  });
  if (!HasCaption()) return;
  MoveToCaption();
  Step([&] { PicPreview_.SetHeight(PicBase_.CurrentY()); });
  PrintCaption();
}

void Layout::PlaceScaled(Scaling scaling) {
  std::int16_t frame_width = 0;
  if (process_.options.ShowFrame()) Step([&] { frame_width = FrameWidth(); });
  TwipRect room;
  Step([&] { room = Room(frame_width); });
  Step([&] {
    const auto box = [&](const TwipSize& natural) { return ScaledBox(natural, room, scaling); };
    const std::optional<TwipRect> part = scaling == Scaling::kFill ? std::optional(room) : std::nullopt;
    imgFullSize_.SetPicture(PicBase_.LoadPicture(Path(), box, part));
    is_loaded_ = true;
  });
  Step([&] {
    const TwipRect box = ScaledBox({imgFullSize_.Width(), imgFullSize_.Height()}, room, scaling);
    const bool is_cut = scaling == Scaling::kFill && imgFullSize_.GetPicture() != nullptr;
    MoveTo(is_cut ? room : box);
    if (is_cut) PicPreview_.SetPictureBounds(box);
  });
  Step([&] { PicPreview_.SetPicture(imgFullSize_.GetPicture()); });
  // Nothing of the last picture's frame or name stays beside the picture.
  if (HasCaption()) {
    MoveToCaption();
    PrintCaption();
  } else {
    Step([&] { PicBase_.Cls(); });
  }
  if (scaling == Scaling::kFit && process_.options.FitBackdrop()) PaintBackdrop(frame_width);
  if (process_.options.ShowFrame()) DrawFrame(frame_width);
}

// The backdrop is drawn under the frame and ends above the file name's line. The picture is shown later, in the same
// place.
void Layout::PaintBackdrop(float frame_width) {
  Step([&] {
    const TwipRect room = Room(frame_width);
    const auto& picture = imgFullSize_.GetPicture();
    const TwipRect above_name = {0, 0, PicBase_.Width(), room.top + room.height + room.top};
    if (picture) PicBase_.PaintBackdrop(*picture, PicPreview_.Bounds(), above_name);
  });
}

std::int16_t Layout::FrameWidth() const {
  const double unit = process_.mode == RunMode::kConfiguration ? kPaneFrameUnit : kFrameUnit;
  return RoundToInt16(process_.options.FrameThickness() * unit);
}

// What a picture can take that leaves the file name its line, and the frame its width on each side.
TwipRect Layout::Room(float frame_width) const {
  const float bottom = HasCaption() ? std::max(0.0F, CaptionTop()) : PicBase_.Height();
  const float width = std::min({frame_width, PicBase_.Width() / 2, bottom / 2});
  return {width, width, PicBase_.Width() - 2 * width, bottom - 2 * width};
}

TwipRect Layout::ScaledBox(const TwipSize& natural, const TwipRect& room, Scaling scaling) const {
  return Scaled({natural.width * RatioX(), natural.height * RatioY()}, room, scaling);
}

void Layout::MoveTo(const TwipRect& box) {
  PicPreview_.SetLeft(box.left);
  PicPreview_.SetTop(box.top);
  PicPreview_.SetWidth(box.width);
  PicPreview_.SetHeight(box.height);
}

// The lowest edge for a picture that will have a caption; infinity without one.
float Layout::ExpectedBottom() const { return HasCaption() ? CaptionTop() : std::numeric_limits<float>::infinity(); }

// Where the steps will place the picture. The loader gets this in advance and decodes only what will be seen.
TwipRect Layout::ExpectedNaturalBox(const TwipSize& natural) const {
  TwipRect box{CentredLeft(natural.width), CentredTop(natural.height), natural.width * RatioX(),
               natural.height * RatioY()};
  const float bottom = ExpectedBottom();
  if (box.height > bottom && bottom >= box.top) box.height = bottom - box.top;
  return box;
}

TwipRect Layout::ExpectedStretchedBox() const {
  return {0, 0, PicBase_.Width(), HasCaption() && CaptionTop() >= 0 ? CaptionTop() : PicBase_.Height()};
}

// Without a date it is the name, or nothing. The line itself is kept in any case: whether a file has a date is known
// only after the picture was decoded for its place above the line.
std::string Layout::Caption() const {
  const CaptionText choice = process_.options.CaptionChoice();
  const auto& picture = PicPreview_.GetPicture();
  const bool has_date = choice != CaptionText::kFileName && is_loaded_ && picture;
  std::string date = has_date ? picture->DateTaken() : std::string();
  if (choice == CaptionText::kDateTaken) return date;
  return date.empty() ? PictureName() : PictureName() + kBeforeDate + date;
}

// Clears the surface and moves the drawing position to where the file name begins: centred in the bottom line.
void Layout::MoveToCaption() {
  Step([&] { PicBase_.Cls(); });
  Step([&] { PicBase_.SetCurrentX((PicBase_.Width() - PicBase_.TextWidth(Caption())) / 2); });
  Step([&] { PicBase_.SetCurrentY(CaptionTop()); });
}

void Layout::PrintCaption() {
  Step([&] { PicBase_.SetForeColor(kWhite); });
  Step([&] { PicBase_.Print(Caption()); });
}

// Fills a box somewhat larger than the picture. The picture, shown later, covers all but the frame.
void Layout::DrawFrame(std::int16_t frame_width) {
  Step([&] { PicBase_.SetDrawWidth(kFramePen); });
  Colour colour = kBlack;
  Step([&] { colour = process_.options.FrameColor(); });
  Step([&] {
    const auto width = static_cast<float>(frame_width);
    PicBase_.LineBox(PicPreview_.Left() - width, PicPreview_.Top() - width,
                     PicPreview_.Left() + PicPreview_.Width() + width, PicPreview_.Top() + PicPreview_.Height() + width,
                     colour);
  });
}

}  // namespace

void LayOutPicture(Process& process, ShowForm& form, std::int32_t picture_index) {
  Layout layout(process, form, picture_index);
  form.PicPreview.SetPictureBounds(std::nullopt);
  const Scaling scaling = process.options.ScalingChoice();
  if (scaling != Scaling::kAsSet) {
    layout.PlaceScaled(scaling);
  } else if (process.options.Stretch()) {
    layout.PlaceStretched();
  } else {
    layout.PlaceNatural();
  }
}

}  // namespace quorvale
