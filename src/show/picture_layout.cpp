#include "show/picture_layout.h"

#include <limits>
#include <string>

#include "base/numbers.h"
#include "base/paths.h"
#include "process/process.h"
#include "process/rules.h"
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

// One layout. Methods without a result consist of steps of the tick.
class Layout {
 public:
  Layout(Process& process, ShowForm& form, std::int32_t PictureIndex)
      : process_(process),
        PicBase_(form.PicBase),
        PicPreview_(form.PicPreview),
        imgFullSize_(form.imgFullSize),
        picture_index_(PictureIndex) {}

  void PlaceNatural();
  void PlaceStretched();

 private:
  std::string Path() const { return process_.show.PictureList.Item(picture_index_); }
  std::string PictureName() const { return PathPart(Path(), kPathName, process_.system.files.Syntax()); }
  bool HasCaption() const { return process_.options.ShowFileName(); }
  float RatioX() const { return PicBase_.Width() / process_.app.Screen().Width; }
  float RatioY() const { return PicBase_.Height() / process_.app.Screen().Height; }
  float CentredLeft(float width) const { return (process_.app.Screen().Width - width) / 2 * RatioX(); }
  float CentredTop(float height) const { return (process_.app.Screen().Height - height) / 2 * RatioY(); }
  float CaptionTop() const { return PicBase_.Height() - PicBase_.TextHeight(PictureName()); }

  float ExpectedBottom() const;
  TwipRect ExpectedNaturalBox(const TwipSize& natural) const;
  TwipRect ExpectedStretchedBox() const;

  void MoveToCaption();
  void PrintCaption();
  void DrawFrame(std::int16_t FrameWidth);

  Process& process_;
  PictureBox& PicBase_;
  ImageControl& PicPreview_;
  ImageControl& imgFullSize_;
  std::int32_t picture_index_;
};

void Layout::PlaceNatural() {
  Step([&] {
    imgFullSize_.SetPicture(
        PicBase_.LoadPicture(Path(), [&](const TwipSize& natural) { return ExpectedNaturalBox(natural); }));
  });
  Step([&] { PicPreview_.SetTop(CentredTop(imgFullSize_.Height())); });
  Step([&] { PicPreview_.SetLeft(CentredLeft(imgFullSize_.Width())); });
  Step([&] { PicPreview_.SetHeight(imgFullSize_.Height() * RatioY()); });
  Step([&] { PicPreview_.SetWidth(imgFullSize_.Width() * RatioX()); });
  Step([&] { PicPreview_.SetPicture(imgFullSize_.GetPicture()); });
  std::int16_t FrameWidth = 0;
  Step([&] {
    const double unit = process_.mode == RunMode::kConfiguration ? kPaneFrameUnit : kFrameUnit;
    FrameWidth = RoundToInt16(process_.options.FrameThickness() * unit);
  });
  if (HasCaption()) {
    MoveToCaption();
    // Compares the height, not the lower edge, so a centred picture may still overlap the file name.
    StepIf([&] { return PicPreview_.Height() > PicBase_.CurrentY(); },
           [&] { Step([&] { PicPreview_.SetHeight(PicBase_.CurrentY() - PicPreview_.Top()); }); });
    PrintCaption();
  }
  if (process_.options.ShowFrame()) DrawFrame(FrameWidth);
}

void Layout::PlaceStretched() {
  Step([&] { PicPreview_.SetTop(0); });
  Step([&] { PicPreview_.SetLeft(0); });
  Step([&] { PicPreview_.SetWidth(PicBase_.Width()); });
  Step([&] { PicPreview_.SetHeight(PicBase_.Height()); });
  Step([&] {
    PicPreview_.SetPicture(
        PicBase_.LoadPicture(Path(), [&](const TwipSize& /*natural*/) { return ExpectedStretchedBox(); }));
  });
  if (!HasCaption()) return;
  MoveToCaption();
  Step([&] { PicPreview_.SetHeight(PicBase_.CurrentY()); });
  PrintCaption();
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

// Clears the surface and moves the drawing position to where the file name begins: centred in the bottom line.
void Layout::MoveToCaption() {
  Step([&] { PicBase_.Cls(); });
  Step([&] { PicBase_.SetCurrentX((PicBase_.Width() - PicBase_.TextWidth(PictureName())) / 2); });
  Step([&] { PicBase_.SetCurrentY(CaptionTop()); });
}

void Layout::PrintCaption() {
  Step([&] { PicBase_.SetForeColor(kWhite); });
  Step([&] { PicBase_.Print(PictureName()); });
}

// Fills a box somewhat larger than the picture. The picture, shown later, covers all but the frame.
void Layout::DrawFrame(std::int16_t FrameWidth) {
  Step([&] { PicBase_.SetDrawWidth(kFramePen); });
  Colour colour = kBlack;
  Step([&] { colour = process_.options.FrameColor(); });
  Step([&] {
    const auto width = static_cast<float>(FrameWidth);
    PicBase_.LineBox(PicPreview_.Left() - width, PicPreview_.Top() - width,
                     PicPreview_.Left() + PicPreview_.Width() + width, PicPreview_.Top() + PicPreview_.Height() + width,
                     colour);
  });
}

}  // namespace

void LayOutPicture(Process& process, ShowForm& form, std::int32_t PictureIndex) {
  Layout layout(process, form, PictureIndex);
  if (process.options.Stretch()) {
    layout.PlaceStretched();
  } else {
    layout.PlaceNatural();
  }
}

}  // namespace quorvale
