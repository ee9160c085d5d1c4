#include "show/slide_tick.h"

#include <memory>
#include <string>

#include "base/numbers.h"
#include "process/end_saver.h"
#include "process/process.h"
#include "process/rules.h"
#include "show/list_position.h"
#include "show/picture_layout.h"
#include "show/sound_track.h"
#include "toolkit/form.h"
#include "toolkit/image_control.h"
#include "toolkit/picture_box.h"
#include "toolkit/timer.h"
#include "transitions/run_transition.h"

namespace quorvale {
namespace {

constexpr double kMillisecondsPerSecond = 1000;

// A form that is alone and not on view is a leftover nobody can close: it goes, and the show ends. The
// preview's form is never on view and stays.
void EndLoneHiddenForm(Process& process) {
  if (process.RunMode == "/P" || process.app.Forms.Count() != 1 || process.app.Forms[0].Visible()) return;
  const std::shared_ptr<Form> form = process.app.Forms[0].shared_from_this();
  Step([&] { form->Find<Timer>("tmrSwitch").SetEnabled(false); });
  Step([&] { process.app.PumpEvents(); });
  Step([&] { form->Unload(); });
  process.StopRequested = true;
}

void WipePictureOnView(Process& process, ImageControl& PicPreview) {
  if (!process.TransitionArmed) {
    process.TransitionArmed = true;  // nothing is on view yet
    return;
  }
  Step([&] { RunTransition(process, PicPreview); });
  if (process.StopRequested) EndSaver(process);
}

void ShowNextPicture(Process& process, ImageControl& PicPreview, ImageControl& imgFullSize) {
  const std::int32_t PictureIndex = NextPosition(process, "ResetPicList", "LastPicture", process.PictureList.Count());
  WipePictureOnView(process, PicPreview);
  Step([&] { PicPreview.SetVisible(false); });
  LayOutPicture(process, PicPreview, imgFullSize, PictureIndex);
  Step([&] { PicPreview.SetVisible(true); });
  Step([&] { KeepPosition(process, "LastPicture", PictureIndex); });
}

void ShowNoPicture(ImageControl& PicPreview) {
  Step([&] { PicPreview.Container().Cls(); });
  Step([&] { PicPreview.SetVisible(false); });
}

}  // namespace

void SlideTick(Process& process, ImageControl& PicPreview, ImageControl& imgFullSize) {
  if (process.PreviewSuspended) return;
  EndLoneHiddenForm(process);
  if (process.PictureList.Count() >= 1) {
    ShowNextPicture(process, PicPreview, imgFullSize);
  } else {
    ShowNoPicture(PicPreview);
  }
  if (process.SoundList.Count() >= 1 && process.RunMode != "/P") PlayNextSound(process);
  Step([&] {
    const double seconds = LenientParse(process.Option("Interval", "5"));
    PicPreview.Parent().Find<Timer>("tmrSwitch").SetInterval(seconds * kMillisecondsPerSecond);
  });
  process.FirstTickOver = true;
}

}  // namespace quorvale
