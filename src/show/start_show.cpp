#include "show/start_show.h"

#include "playlist/media_collections.h"
#include "playlist/shuffle.h"
#include "process/process.h"
#include "show/show_form.h"
#include "system/host_system.h"

namespace quorvale {
namespace {

constexpr int kFirstTickMilliseconds = 500;

void Shuffle(Process& process, Collection& collection) {
  process.random.Seed(process.system.host.ClockSeed());
  ShuffleCollection(collection, process.random);
}

// The part that does not depend on where the lists come from.
void Begin(Process& process, ShowForm& form) {
  const Colour background = process.options.BackColor();
  form.PicBase.SetBackColor(background);
  form.PicBase.SetFillColor(background);
  if (process.options.PicRandom()) Shuffle(process, process.show.PictureList);
  if (process.options.SoundRandom()) Shuffle(process, process.show.SoundList);
  form.tmrSwitch.SetInterval(kFirstTickMilliseconds);
  form.tmrSwitch.SetEnabled(true);
  process.show.TransitionSpeed = process.options.TransSpeed();
}

}  // namespace

void InitShow(Process& process, ShowForm& form) {
  form.tmrSwitch.SetEnabled(false);
  FileSystem& files = process.system.files;
  process.show.PictureList = FillFromSettings(process.Settings, files, kPictureSection, PictureMask());
  process.show.SoundList = FillFromSettings(process.Settings, files, kSoundSection, kSoundMask);
  Begin(process, form);
}

void InitShow(Process& process, ShowForm& form, const ListBox& pictures, const ListBox& sounds) {
  form.tmrSwitch.SetEnabled(false);
  FileSystem& files = process.system.files;
  process.show.PictureList = FillFromList(files, pictures, PictureMask());
  process.show.SoundList = FillFromList(files, sounds, kSoundMask);
  Begin(process, form);
}

}  // namespace quorvale
