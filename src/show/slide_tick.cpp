#include "show/slide_tick.h"

#include <memory>
#include <string>

#include "process/end_saver.h"
#include "process/process.h"
#include "process/rules.h"
#include "show/list_position.h"
#include "show/picture_layout.h"
#include "show/show_form.h"
#include "show/sound_track.h"
#include "toolkit/nonvisual_controls.h"
#include "transitions/run_transition.h"

namespace quorvale {
namespace {

constexpr double kMillisecondsPerSecond = 1000;

// If the only loaded form is hidden, the user can't close it, so it is unloaded and the show ends. The preview's form
// is always hidden and is exempt.
void CloseOrphanedForm(Process& process) {
  if (process.mode == RunMode::kPreview || process.app.Forms.Count() != 1 || process.app.Forms[0].Visible()) return;
  const std::shared_ptr<Form> form = process.app.Forms[0].shared_from_this();
  Step([&] { form->Find<Timer>("tmrSwitch").SetEnabled(false); });
  Step([&] { process.app.PumpEvents(); });
  Step([&] { form->Unload(); });
  process.show.StopRequested = true;
}

void WipePictureOnView(Process& process, ImageControl& PicPreview) {
  if (!process.show.TransitionArmed) {
    process.show.TransitionArmed = true;  // no picture is shown yet
    return;
  }
  Step([&] { RunTransition(process, PicPreview); });
  if (process.show.StopRequested) EndSaver(process);
}

void ShowNextPicture(Process& process, ShowForm& form) {
  ImageControl& PicPreview = form.PicPreview;
  const std::int32_t PictureIndex =
      NextPosition(process.options, process.show, kResetPicList, kLastPicture, process.show.PictureList.Count());
  WipePictureOnView(process, PicPreview);
  Step([&] { PicPreview.SetVisible(false); });
  LayOutPicture(process, form, PictureIndex);
  Step([&] { PicPreview.SetVisible(true); });
  Step([&] { KeepPosition(process.options, process.show, kLastPicture, PictureIndex); });
}

void ShowNoPicture(ShowForm& form) {
  Step([&] { form.PicBase.Cls(); });
  Step([&] { form.PicPreview.SetVisible(false); });
}

}  // namespace

void SlideTick(Process& process, ShowForm& form) {
  if (process.show.PreviewSuspended) return;
  CloseOrphanedForm(process);
  if (process.show.PictureList.Count() >= 1) {
    ShowNextPicture(process, form);
  } else {
    ShowNoPicture(form);
  }
  if (process.show.SoundList.Count() >= 1 && process.mode != RunMode::kPreview) PlayNextSound(process);
  Step([&] { form.tmrSwitch.SetInterval(process.options.Interval() * kMillisecondsPerSecond); });
  process.show.FirstTickOver = true;
}

}  // namespace quorvale
