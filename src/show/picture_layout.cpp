#include "show/picture_layout.h"

#include <limits>
#include <string>

#include "base/numbers.h"
#include "playlist/path_part.h"
#include "process/process.h"
#include "process/rules.h"
#include "show/show_form.h"
#include "system/file_system.h"
#include "toolkit/units.h"

namespace quorvale {
namespace {

// Twips to the unit of the option `FrameThickness`. The pane of the configuration window is so small
// that it gets a thinner frame.
constexpr double kFrameUnit = 20;
constexpr double kPaneFrameUnit = 4;
constexpr int kFramePen = 1;  // pixels

// One layout. Each method below that has no result is a run of the tick's steps.
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
    // The height is compared, not the lower edge: a picture that is not taller than the text's top keeps
    // its height even where it reaches into the text.
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

// Where a picture may reach down to, if a caption is going to stand under it.
float Layout::ExpectedBottom() const { return HasCaption() ? CaptionTop() : std::numeric_limits<float>::infinity(); }

// The same place that the steps come to, told to the loader so that it decodes just what will be seen.
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

// Clears the surface and puts the drawing position where the file name will stand: in the bottom line,
// in the middle.
void Layout::MoveToCaption() {
  Step([&] { PicBase_.Cls(); });
  Step([&] { PicBase_.SetCurrentX((PicBase_.Width() - PicBase_.TextWidth(PictureName())) / 2); });
  Step([&] { PicBase_.SetCurrentY(CaptionTop()); });
}

void Layout::PrintCaption() {
  Step([&] { PicBase_.SetForeColor(kWhite); });
  Step([&] { PicBase_.Print(PictureName()); });
}

// A solid box under the picture, of which a band stays visible around it.
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
