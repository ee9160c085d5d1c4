#include "show/slide_tick.h"

#include <memory>
#include <new>
#include <string>

#include "base/numbers.h"
#include "process/failed_steps.h"
#include "process/process.h"
#include "show/picture_layout.h"
#include "show/show_form.h"
#include "system/sound_player.h"
#include "toolkit/nonvisual_controls.h"
#include "transitions/run_transition.h"

namespace quorvale {
namespace {

constexpr double kMillisecondsPerSecond = 1000;

std::string LastPosition(const Options& options, const ShowState& show, const OptionRow& last) {
  const auto unstored = show.unstored_positions.find(last.key);
  return unstored != show.unstored_positions.end() ? unstored->second : options.Text(last);
}

// The position (from 1) that a tick shows next in a list of `count` entries: the one after the position stored in
// `last`, or 1 after the end. The process's first tick starts at 1 if the option `reset` is on. If the stored position
// is not a number, the result is 0.
std::int32_t NextPosition(const Options& options, const ShowState& show, const OptionRow& reset, const OptionRow& last,
                          int count) {
  std::int32_t position = 0;
  StepIf([&] { return !show.first_tick_over && options.IsAnyNumber(reset); }, [&] { position = 1; },
         [&] { Step([&] { position = RoundToInt32(StrictNumber(LastPosition(options, show, last)) + 1); }); });
  return position > count ? 1 : position;
}

// Stores a position in the option `last`. If that fails, it is kept in memory for this run.
void KeepPosition(Options& options, ShowState& show, const OptionRow& last, std::int32_t position) {
  if (options.SetText(last, std::to_string(position))) {
    show.unstored_positions.erase(last.key);
  } else {
    show.unstored_positions[last.key] = std::to_string(position);
  }
}

// The next position in the list of pictures, stored at once and together with the reading: where each monitor has
// pictures of its own, no two may show the same one, not even if they belong to different processes.
std::int32_t ClaimNextPicture(Process& process) {
  ShowState& show = process.show;
  std::int32_t position = 0;
  const auto next = [&] {
    position = NextPosition(process.options, show, kResetPicList, kLastPicture, show.picture_list.Count());
  };
  const bool is_stored = process.settings.SaveTogether([&] {
    next();
    process.options.SetText(kLastPicture, std::to_string(position));
  });
  if (is_stored) {
    show.unstored_positions.erase(kLastPicture.key);
  } else {
    next();
    show.unstored_positions[kLastPicture.key] = std::to_string(position);
  }
  return position;
}

// If the only loaded form is hidden, the user can't close it, so it is unloaded and the show ends. The preview's form
// is always hidden and is exempt.
void CloseOrphanedForm(Process& process, ShowForm& form) {
  if (process.mode == RunMode::kPreview || process.app.forms.Count() != 1 || form.Visible()) return;
  Step([&] { form.tmrSwitch.SetEnabled(false); });
  Step([&] { process.app.PumpEvents(); });
  Step([&] { form.Unload(); });
  process.show.stop_requested = true;
}

void WipePictureOnView(Process& process, ShowForm& form) {
  if (!form.TransitionArmed()) {
    form.TransitionArmed() = true;  // no picture is shown yet
    return;
  }
  Step([&] { RunTransition(process, form.PicBase, form.PicPreview); });
  if (process.show.stop_requested) EndSaver(process);
}

void ShowNextPicture(Process& process, ShowForm& form) {
  ImageControl& PicPreview = form.PicPreview;
  const bool is_shared = SharesPictures(process);
  const std::int32_t picture_index = is_shared ? ClaimNextPicture(process)
                                               : NextPosition(process.options, process.show, kResetPicList,
                                                              kLastPicture, process.show.picture_list.Count());
  WipePictureOnView(process, form);
  Step([&] { PicPreview.SetVisible(false); });
  LayOutPicture(process, form, picture_index);
  Step([&] { PicPreview.SetVisible(true); });
  if (!is_shared) Step([&] { KeepPosition(process.options, process.show, kLastPicture, picture_index); });
}

// Ends the previous sound.
void PlayNextSound(Process& process) {
  const std::int32_t sound_index =
      NextPosition(process.options, process.show, kResetSoundList, kLastSound, process.show.sound_list.Count());
  Step([&] { process.app.PumpEvents(); });
  // Read the list only now: an event may have replaced it.
  Step([&] {
    process.system.sound.PlaySound(process.show.sound_list.Item(sound_index), kSndFilename | kSndAsync | kSndNoDefault);
  });
  Step([&] { KeepPosition(process.options, process.show, kLastSound, sound_index); });
  Step([&] { process.app.PumpEvents(); });
}

void ShowNoPicture(ShowForm& form) {
  Step([&] { form.PicBase.Cls(); });
  Step([&] { form.PicPreview.SetVisible(false); });
}

void Tick(Process& process, ShowForm& form) {
  if (process.show.preview_suspended) return;
  CloseOrphanedForm(process, form);
  if (process.show.picture_list.Count() >= 1) {
    ShowNextPicture(process, form);
  } else {
    ShowNoPicture(form);
  }
  if (process.show.sound_list.Count() >= 1 && form.PlaysSounds()) PlayNextSound(process);
  Step([&] { form.tmrSwitch.SetInterval(process.options.Interval() * kMillisecondsPerSecond); });
  process.show.first_tick_over = true;
}

}  // namespace

// Memory can also run out between the steps. The next tick may find some, and a box would hold the show up until then.
void SlideTick(Process& process, ShowForm& form) {
  try {
    Tick(process, form);
  } catch (const std::bad_alloc&) {
  }
}

}  // namespace quorvale
