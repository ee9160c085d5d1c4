#include "show/show_form.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "playlist/media_collections.h"
#include "process/process.h"
#include "system/host_system.h"

namespace quorvale {
namespace {

// Until `InitShow` sets another.
constexpr int kDesignInterval = 400;  // milliseconds

constexpr int kFirstTickMilliseconds = 500;

void SortPictures(Process& process) {
  const Order order = process.options.OrderChoice();
  if (order == Order::kAsListed) return;
  SortByDate(process.system.files, process.show.picture_list, order == Order::kNewestFirst);
}

void Shuffle(Process& process, Collection& collection) {
  process.random.Seed(process.system.host.ClockSeed());
  ShuffleCollection(collection, process.random);
}

// Processes that share the position in the list have to agree on what is there. Only the order comes from the common
// seed; effects side by side must not be alike.
void ShufflePictures(Process& process) {
  HostSystem& host = process.system.host;
  const std::optional<std::uint64_t> common = SharesPictures(process) ? host.ShowSeed() : std::nullopt;
  if (!common) {
    Shuffle(process, process.show.picture_list);
    return;
  }
  Random order;
  order.Seed(*common);
  ShuffleCollection(process.show.picture_list, order);
  process.random.Seed(host.ClockSeed());
}

void SetBackground(ShowForm& form, Colour background) {
  form.PicBase.SetBackColor(background);
  form.PicBase.SetFillColor(background);
}

void StartTimer(ShowForm& form) {
  form.tmrSwitch.SetInterval(kFirstTickMilliseconds);
  form.tmrSwitch.SetEnabled(true);
}

// The part that does not depend on where the lists come from.
void Begin(Process& process, ShowForm& form) {
  SetBackground(form, process.options.BackColor());
  if (process.options.PicRandom()) {
    ShufflePictures(process);
  } else {
    SortPictures(process);
  }
  if (process.options.SoundRandom()) Shuffle(process, process.show.sound_list);
  StartTimer(form);
  process.show.transition_speed = process.options.TransSpeed();
}

}  // namespace

ShowForm::ShowForm(Process& process, std::string name, WindowKind kind, std::string caption, Font font)
    : Form(process.app, std::move(name), kind, std::move(caption)),
      tmrSwitch(*this, "tmrSwitch", kDesignInterval),
      PicBase(*this, "PicBase", std::move(font)),
      PicPreview(PicBase, "PicPreview", true),
      imgFullSize(*this, "imgFullSize", false),
      process_(process) {
  imgFullSize.SetVisible(false);
  tmrSwitch.Elapsed = [this] { tmrSwitch_Timer(); };
}

bool& ShowForm::TransitionArmed() { return process_.show.transition_armed; }

// Settings dialogs expect a silent preview.
bool ShowForm::PlaysSounds() const { return process_.mode != RunMode::kPreview && !process_.beside_primary; }

bool SharesPictures(const Process& process) {
  return process.mode == RunMode::kShow && process.options.MonitorsChoice() == Monitors::kPictureOnEach;
}

void InitShow(Process& process, ShowForm& form) {
  form.tmrSwitch.SetEnabled(false);
  FileSystem& files = process.system.files;
  const bool sub_folders = process.options.SubFolders();
  const std::string mask = PictureMask(process.options.MoreKinds());
  process.show.picture_list = FillFromSettings(process.settings, files, kPictureSection, mask, sub_folders);
  process.show.sound_list = FillFromSettings(process.settings, files, kSoundSection, kSoundMask, sub_folders);
  Begin(process, form);
}

void InitShow(Process& process, ShowForm& form, const ListBox& pictures, const ListBox& sounds) {
  form.tmrSwitch.SetEnabled(false);
  FileSystem& files = process.system.files;
  const bool sub_folders = process.options.SubFolders();
  const std::string mask = PictureMask(process.options.MoreKinds());
  process.show.picture_list = FillFromList(files, pictures, mask, sub_folders);
  process.show.sound_list = FillFromList(files, sounds, kSoundMask, sub_folders);
  Begin(process, form);
}

void JoinShow(ShowForm& form, const ShowForm& first) {
  SetBackground(form, first.PicBase.BackColor());
  StartTimer(form);
}

}  // namespace quorvale
